#include "LintElements.h"
#include "LintFleetForms.h"
#include "terminal/Terminal.h"

namespace qxmix {

namespace {

/// A text as it stands in XML, between quotes as well: characters that XML has no place for, and
/// bytes that are none, become "?".
std::string XmlText(const std::string& text) {
    std::string escaped;
    for (const char letter : Printable(text)) {
        switch (letter) {
        case '&':
            escaped += "&amp;";
            break;
        case '<':
            escaped += "&lt;";
            break;
        case '>':
            escaped += "&gt;";
            break;
        case '"':
            escaped += "&quot;";
            break;
        default:
            escaped += letter;
        }
    }
    return escaped;
}

std::string LineText(const LintElement& element) {
    const std::string pointer = element.Text("pointer");
    const std::string reason =
        element.IsAccepted() ? "accepted: " + element.Text("accepted") + ": " : "";
    return XmlText(element.Severity() + " " + element.Text("id") + " " + reason +
                   (pointer.empty() ? "" : pointer + "  ") + element.Message()) +
           "\n";
}

/// A case with what makes it fail, and what is worth knowing beside that.
std::string CaseText(const LintFleet& fleet, const LintFleetRow& row) {
    std::string failures;
    std::string others;
    for (const LintElement& element : ElementsOf(fleet, row)) {
        const bool fails = !element.IsAccepted() && element.Severity() != "note";
        (fails ? failures : others) += LineText(element);
    }
    std::string text =
        "    <testcase classname=\"qxmix.lint\" name=\"" + XmlText(row.file) + "\">\n";
    if (row.status != ExitStatus::Well) {
        const bool isError = !row.isAsked || row.status == ExitStatus::CannotWork;
        const std::string name = isError ? "error" : "failure";
        text += "      <" + name + " type=\"" +
                XmlText(isError ? "notAsked" : row.first.substr(0, row.first.find(' '))) +
                "\" message=\"" + XmlText(row.first) + "\">" + failures + "</" + name + ">\n";
    }
    if (!others.empty()) {
        text += "      <system-out>" + others + "</system-out>\n";
    }
    return text + "    </testcase>\n";
}

}  // namespace

void WriteLintJUnit(const LintFleet& fleet, const TakePart& take) {
    std::size_t errors = 0;
    std::size_t failures = 0;
    for (const LintFleetRow& row : fleet.rows) {
        const bool isError = !row.isAsked || row.status == ExitStatus::CannotWork;
        errors += isError ? 1U : 0U;
        failures += !isError && row.status != ExitStatus::Well ? 1U : 0U;
    }
    const std::string counts = " tests=\"" + std::to_string(fleet.rows.size()) + "\" failures=\"" +
                               std::to_string(failures) + "\" errors=\"" + std::to_string(errors) +
                               "\"";
    take("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuites" + counts +
         ">\n  <testsuite name=\"qxmix lint\"" + counts + " skipped=\"0\">\n");
    for (const LintFleetRow& row : fleet.rows) {
        take(CaseText(fleet, row));
    }
    take("  </testsuite>\n</testsuites>\n");
}

}  // namespace qxmix
