#pragma once

#include <string>

namespace qxmix {

/// A text as a cell of a sheet that is written; numbers and times stand there as they are.
inline std::string CsvCell(const std::string& text) {
    if (text.find_first_of(",;\"\r\n\t") == std::string::npos) {
        return text;
    }
    std::string cell = "\"";
    for (const char letter : text) {
        cell += letter == '"' ? "\"\"" : std::string(1, letter);
    }
    return cell + "\"";
}

}  // namespace qxmix
