#include "Findings.h"

#include <algorithm>

namespace qxmix {

namespace {

struct SeverityRow {
    const char* name;    // in JSON
    const char* padded;  // at the beginning of a line
    const char* style;
};

const SeverityRow& RowOf(Severity severity) {
    static const SeverityRow rows[] = {
        {"note", "note  ", ""},
        {"warning", "warn  ", "38;5;214"},
        {"error", "error ", "1;38;5;166"},
    };
    return rows[static_cast<std::size_t>(severity)];
}

}  // namespace

std::string FindingsText(const std::vector<Finding>& findings, bool quiet, const Painter& painter) {
    std::string text;
    for (const Finding& finding : findings) {
        if (quiet && finding.severity == Severity::Note) {
            continue;
        }
        const SeverityRow& row = RowOf(finding.severity);
        text += painter.Paint(row.padded, row.style) + finding.id + "  " + finding.message + "\n";
        if (!finding.advice.empty() && finding.severity != Severity::Note) {
            text += "      do     " + finding.advice + "\n";
        }
    }
    return text;
}

Json FindingsJson(const std::vector<Finding>& findings) {
    Json json = Json::array();
    for (const Finding& finding : findings) {
        json.push_back({{"id", finding.id},
                        {"severity", RowOf(finding.severity).name},
                        {"mix", finding.mix ? Json(*finding.mix) : Json()},
                        {"pointer", finding.pointer.empty() ? Json() : Json(finding.pointer)},
                        {"message", finding.message},
                        {"advice", finding.advice.empty() ? Json() : Json(finding.advice)}});
    }
    return json;
}

bool HasError(const std::vector<Finding>& findings) {
    return std::any_of(findings.begin(), findings.end(),
                       [](const Finding& finding) { return finding.severity == Severity::Error; });
}

}  // namespace qxmix
