#include "Findings.h"

#include "json/Json.h"
#include "terminal/WrappedText.h"
#include "text/TextList.h"

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

/// Messages and advice name files.
std::string Lines(const std::string& text, std::size_t indent) {
    return WrappedText(Split(Printable(text), ' '), " ", indent, indent);
}

/// What to do. A command can be copied: where it does not fit it goes on as shells take it.
std::string AdviceLines(const std::string& advice) {
    if (advice.rfind("qxmix ", 0) != 0) {
        return Lines(advice, kLeftOfFinding);
    }
    constexpr std::size_t kContinuation = 2;
    return Join(Split(Lines(advice, kLeftOfFinding + kContinuation), '\n'), " \\\n");
}

}  // namespace

std::string FindingText(const Finding& finding, FindingPlace place, const Painter& painter) {
    const SeverityRow& row = RowOf(finding.severity);
    const bool tellsPlace = place == FindingPlace::Told && !finding.pointer.empty();
    const std::string text =
        painter.Paint(row.padded, row.style) + finding.id + "  " +
        Lines((tellsPlace ? finding.pointer + "  " : "") + finding.message, kLeftOfFinding) + "\n";
    const bool tellsAdvice = !finding.advice.empty() && finding.severity != Severity::Note;
    return text + (tellsAdvice ? "      do     " + AdviceLines(finding.advice) + "\n" : "");
}

std::string FindingsText(const std::vector<Finding>& findings, bool quiet, const Painter& painter) {
    std::string text;
    for (const Finding& finding : findings) {
        if (!quiet || finding.severity != Severity::Note) {
            text += FindingText(finding, FindingPlace::Untold, painter);
        }
    }
    return text;
}

void TellCurrency(Finding& finding, const std::string& currency) {
    finding.currency = currency;
    finding.message = CurrencyMark(currency) + finding.message;
}

Json FindingJson(const Finding& finding) {
    Json json = {{"id", finding.id},
                 {"severity", RowOf(finding.severity).name},
                 {"mix", finding.mix ? Json(*finding.mix) : Json()},
                 {"pointer", finding.pointer.empty() ? Json() : Json(finding.pointer)},
                 {"message", finding.message},
                 {"advice", finding.advice.empty() ? Json() : Json(finding.advice)}};
    if (finding.isProved) {
        json["proved"] = *finding.isProved;
    }
    if (!finding.currency.empty()) {
        json["currency"] = finding.currency;
    }
    return json;
}

Json FindingsJson(const std::vector<Finding>& findings) {
    Json json = Json::array();
    for (const Finding& finding : findings) {
        json.push_back(FindingJson(finding));
    }
    return json;
}

ExitStatus ExitStatusOf(Severity severity) {
    return severity == Severity::Error     ? ExitStatus::Danger
           : severity == Severity::Warning ? ExitStatus::HonestNo
                                           : ExitStatus::Well;
}

ExitStatus ExitStatusOf(const std::vector<Finding>& findings) {
    ExitStatus status = ExitStatus::Well;
    for (const Finding& finding : findings) {
        status = std::max(status, ExitStatusOf(finding.severity));
    }
    return status;
}

}  // namespace qxmix
