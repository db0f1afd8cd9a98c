#pragma once

#include <charconv>
#include <optional>
#include <string>
#include <system_error>

namespace qxmix {

/// Reads a text that is a whole number of the type and nothing else.
template <typename Number>
std::optional<Number> ParseWhole(const std::string& text) {
    Number number{};
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && stop == end ? std::make_optional(number) : std::nullopt;
}

}  // namespace qxmix
