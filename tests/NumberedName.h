#pragma once

#include <cctype>
#include <cstddef>
#include <string>
#include <string_view>

/// A name for one of a test's parameters that is the same in every build: its number, and of a text
/// the letters and digits, which are all that a test's name may have.
inline std::string NumberedName(std::size_t number, std::string_view text) {
    constexpr std::size_t kLongest = 40;
    std::string name = std::to_string(number);
    for (const char character : text.substr(0, kLongest)) {
        if (std::isalnum(static_cast<unsigned char>(character)) != 0) {
            name += character;
        } else if (name.back() != '_') {
            name += '_';
        }
    }
    return name;
}
