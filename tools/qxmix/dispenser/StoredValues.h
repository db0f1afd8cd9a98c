#pragma once

#include "Dispenser.h"
#include "json/JsonFields.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace qxmix {

constexpr std::uint32_t kRegSz = 1;     ///< terminated text, UTF-16
constexpr std::uint32_t kRegDword = 4;  ///< 32-bit number, little-endian

constexpr const char* kTraceLevel = "TraceLevel";
constexpr const char* kCstMinimum4Mix6 = "CSTMinimum4Mix6";

/// Reads the `registry` object of a dispenser file.
///
/// @throw InputError
std::vector<StoredValue> ReadStoredValues(const Json& json, const Place& place);

/// The object again, each value as type and bytes.
Json StoredValuesJson(const std::vector<StoredValue>& values);

/// The bytes of a REG_DWORD.
std::string DwordBytes(std::uint32_t number);

/// The bytes of a REG_SZ: UTF-16 with its terminator. What is no UTF-8 becomes U+FFFD.
std::string TextBytes(const std::string& utf8);

/// The text of a REG_SZ that is plain ASCII in UTF-16, terminated or not; nothing for any other
/// value.
std::optional<std::string> StoredText(const StoredValue& value);

/// A value for people: its type and its text, number or bytes.
std::string StoredValueText(const StoredValue& value);

}  // namespace qxmix
