#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// Longest name of a key between two backslashes, and of a value, in 16-bit characters.
/// Source: the limit of Windows CE; the desktop allows longer value names.
constexpr std::size_t kMaxRegistryName = 255;

/// Upper-case form of a character: a to z, the small letters of Latin-1 (U+00E0 to U+00FE without
/// the division sign) and U+00FF. All other characters compare as they are, in every locale.
char16_t FoldCase(char16_t character) noexcept;

/// Order of names without regard to case.
struct NameLess {
    bool operator()(const std::u16string& left, const std::u16string& right) const noexcept;
};

/// Names from the root inwards, with one backslash between each two and none at the end.
using KeyPath = std::u16string;

/// Order of paths without regard to case: a key stands directly before everything below it.
struct PathLess {
    bool operator()(const KeyPath& left, const KeyPath& right) const noexcept;
};

/// Whether one path is the other or lies below it.
bool IsAtOrBelow(const KeyPath& path, const KeyPath& above) noexcept;

/// Whether the path has no key above it.
bool IsRoot(const KeyPath& path) noexcept;

/// The roots that the registry keeps, in the order in which they are written to files.
constexpr std::u16string_view kClassesRootName = u"HKEY_CLASSES_ROOT";
constexpr std::u16string_view kLocalMachineName = u"HKEY_LOCAL_MACHINE";

/// Appends a sub-key as callers write it: names between backslashes, of which several in a row
/// count as one and one at the end as none; '/' is a character like any other.
///
/// @return 0, kQxmixErrorBadPathName when it begins with a backslash, or
///         kQxmixErrorInvalidParameter when a name is too long.
std::int32_t AppendSubKey(std::u16string_view subKey, KeyPath* path);

/// Reads a path that begins with the name of its root.
///
/// @return 0, kQxmixErrorInvalidParameter when there is no such root, or as AppendSubKey.
std::int32_t ReadFullPath(std::u16string_view text, KeyPath* path);
