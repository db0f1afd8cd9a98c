#pragma once

#include <string>

namespace qxmix {

/// A text as a cell of a sheet that is written; numbers and times stand there as they are.
///
/// One that a spreadsheet would calculate (=, +, -, @ before it) has an apostrophe before it.
inline std::string CsvCell(const std::string& text) {
    const bool isFormula =
        !text.empty() && std::string("=+-@\t\r").find(text[0]) != std::string::npos;
    if (!isFormula && text.find_first_of(",;\"\r\n\t") == std::string::npos) {
        return text;
    }
    std::string cell = isFormula ? "\"'" : "\"";
    for (const char letter : text) {
        cell += letter == '"' ? "\"\"" : std::string(1, letter);
    }
    return cell + "\"";
}

}  // namespace qxmix
