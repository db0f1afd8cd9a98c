#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Decodes UTF-8, strictly: no overlong form, no surrogate, nothing above U+10FFFF.
///
/// @param badAt  receives the offset of the first wrong byte when there is one; may be null.
/// @return the text, or nothing when a byte is wrong.
std::optional<std::u16string> DecodeUtf8(std::string_view bytes, std::size_t* badAt = nullptr);

/// Encodes UTF-16 for people to read; half a surrogate pair becomes U+FFFD.
std::string EncodeUtf8(std::u16string_view text);

/// Cuts UTF-8 to so many bytes at most, between characters.
std::string_view CutUtf8(std::string_view text, std::size_t bytes) noexcept;

/// Whether no surrogate stands alone.
bool IsWellFormedUtf16(std::u16string_view text) noexcept;

/// The character of a byte in the 8-bit text of Windows.
/// Source: Windows code page 1252; its five free numbers stay what they are, as in Windows.
char16_t FromWindows1252(std::uint8_t byte) noexcept;

/// The bytes of UTF-16 text, low byte first, without mark or terminator.
std::vector<std::uint8_t> LittleEndianBytes(std::u16string_view text);

/// The reverse; an odd last byte is left out.
std::u16string FromLittleEndianBytes(const std::uint8_t* bytes, std::size_t size);
