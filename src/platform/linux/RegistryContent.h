#pragma once

#include "RegistryName.h"
#include "RegistryValue.h"

#include <cstdint>
#include <map>
#include <string>

/// Values by name; the key's own value has the empty name.
using RegistryValues = std::map<std::u16string, RegistryValue, NameLess>;

/// A key and what it holds, without the keys below it.
struct RegistryKey {
    std::uint64_t serial = 0;  ///< tells a key from an earlier one of the same path; roots have 0
    RegistryValues values;
};

/// Keys in the order of their paths; names are spelled as they were first written.
using RegistryKeys = std::map<KeyPath, RegistryKey, PathLess>;

/// Keys and values under the two roots: a plain value that is built, copied and replaced whole.
class RegistryContent {
public:
    /// The two roots, empty.
    RegistryContent();

    /// What a terminal has before anything is configured: the key for error codes.
    static RegistryContent AtStart();

    const RegistryKeys& Keys() const noexcept { return keys_; }

    /// @return the key, or null.
    const RegistryKey* Find(const KeyPath& path) const noexcept;
    RegistryKey* Find(const KeyPath& path) noexcept;

    /// @return the value, or null when it or the key is missing.
    const RegistryValue* FindValue(const KeyPath& path, const std::u16string& name) const;

    /// Creates a key and those above it.
    /// @param created  receives whether it was missing; may be null.
    RegistryKey& Create(const KeyPath& path, bool* created = nullptr);

    /// Removes a key with everything below it; of a root, only its content.
    /// @return whether it was there.
    bool Delete(const KeyPath& path);

private:
    RegistryKeys keys_;
};
