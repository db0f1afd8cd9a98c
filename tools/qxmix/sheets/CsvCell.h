#pragma once

#include "terminal/Terminal.h"

#include <algorithm>
#include <string>

namespace qxmix {

/// A text as a cell of a sheet that is written; numbers and times stand there as they are.
///
/// One that a spreadsheet would calculate (=, +, -, @ before it) has an apostrophe before it. Ends
/// of lines and tabs stand in quotes; what else could move letters about is taken out, since sheets
/// are shown on terminals, too.
inline std::string CsvCell(const std::string& text) {
    const bool isFormula =
        !text.empty() && std::string("=+-@\t\r").find(text[0]) != std::string::npos;
    if (!isFormula && text.find_first_of(",;\"\r\n\t") == std::string::npos) {
        return Printable(text);
    }
    std::string cell = isFormula ? "\"'" : "\"";
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t next = std::min(text.find_first_of("\"\r\n\t", at), text.size());
        cell += Printable(text.substr(at, next - at));
        if (next < text.size()) {
            cell += text[next] == '"' ? "\"\"" : std::string(1, text[next]);
        }
        at = next + 1;
    }
    return cell + "\"";
}

}  // namespace qxmix
