#include "LintElements.h"
#include "LintFleetForms.h"
#include "terminal/Terminal.h"

namespace qxmix {

namespace {

/// What would end a text, or a property beside others.
std::string GithubText(const std::string& text, const std::string& marks) {
    static const char* const digits = "0123456789ABCDEF";
    std::string escaped;
    // A log is shown on screens, and what moves letters about has no business there.
    for (const char letter : Printable(text)) {
        const auto byte = static_cast<unsigned char>(letter);
        escaped += marks.find(letter) == std::string::npos
                       ? std::string(1, letter)
                       : std::string("%") + digits[byte / 16] + digits[byte % 16];
    }
    return escaped;
}

std::string PropertyText(const std::string& text) {
    return GithubText(text, "%\r\n:,");
}

std::string GithubLine(const LintElement& element) {
    const std::string severity = element.Severity();
    std::string line = "::" + (severity == "note" ? "notice" : severity) +
                       " file=" + PropertyText(element.row.file);
    if (element.place) {
        line += ",line=" + std::to_string(element.place->line) +
                ",col=" + std::to_string(element.place->column);
    }
    line += element.isError ? "" : ",title=" + element.Text("id");
    const std::string pointer = element.Text("pointer");
    return line +
           "::" + GithubText((pointer.empty() ? "" : pointer + "  ") + element.Message(), "%\r\n") +
           "\n";
}

}  // namespace

void WriteLintGithub(const LintFleet& fleet, const TakePart& take) {
    for (const LintFleetRow& row : fleet.rows) {
        for (const LintElement& element : ElementsOf(fleet, row)) {
            if (!element.IsAccepted()) {
                take(GithubLine(element));
            }
        }
    }
}

}  // namespace qxmix
