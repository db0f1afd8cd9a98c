#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// What is stored under a name.
struct RegistryValue {
    std::uint32_t type = 0;  ///< any number; the registry itself gives it no meaning
    std::vector<std::uint8_t> bytes;
};

/// A REG_SZ: the text in UTF-16 with a terminator.
RegistryValue TextValue(std::u16string text);

/// A REG_DWORD.
RegistryValue NumberValue(std::uint32_t number);

/// Hands a value to a caller as RegQueryValueExW does.
///
/// @param type, bytes, size  each may be null; size is there when bytes is, and says its room.
/// @return 0, or kQxmixErrorMoreData with the size told and nothing written to bytes.
std::int32_t GiveValue(const RegistryValue& value,
                       std::uint32_t* type,
                       std::uint8_t* bytes,
                       std::uint32_t* size) noexcept;
