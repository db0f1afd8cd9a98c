#pragma once

#include <chrono>
#include <optional>
#include <string>

namespace qxmix {

/// Reads "2s" or "100ms"; not 0, at most a day.
std::optional<std::chrono::milliseconds> ParseDuration(const std::string& text);

/// What is expected where a text is no such time.
constexpr const char* kDurationExpected = "a time from 1ms to 86400s such as 2s or 100ms";

/// As it is read: whole seconds in seconds, anything else in milliseconds.
std::string DurationText(std::chrono::milliseconds duration);

/// For people: "2 s" or "100 ms".
std::string DurationWords(std::chrono::milliseconds duration);

}  // namespace qxmix
