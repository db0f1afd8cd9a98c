#pragma once

#include <string>
#include <vector>

namespace qxmix {

/// The parts of a text between separators; an empty text is one empty part.
inline std::vector<std::string> Split(const std::string& text, char separator) {
    std::vector<std::string> parts(1);
    for (const char letter : text) {
        if (letter == separator) {
            parts.emplace_back();
        } else {
            parts.back() += letter;
        }
    }
    return parts;
}

/// The parts with the separator between them.
inline std::string Join(const std::vector<std::string>& parts, const std::string& separator) {
    std::string text;
    for (const std::string& part : parts) {
        text += (text.empty() ? "" : separator) + part;
    }
    return text;
}

}  // namespace qxmix
