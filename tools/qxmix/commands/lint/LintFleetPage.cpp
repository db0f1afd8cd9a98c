#include "LintElements.h"
#include "LintFleetForms.h"
#include "LintForms.h"
#include "pages/FleetPage.h"

namespace qxmix {

namespace {

enum Kind : std::size_t { kNotAsked, kWithErrors, kWithWarnings, kWithNotes, kClean };

std::size_t KindOf(const LintFleetRow& row) {
    return !row.isAsked                      ? kNotAsked
           : row.Told(Severity::Error) > 0   ? kWithErrors
           : row.Told(Severity::Warning) > 0 ? kWithWarnings
           : row.Told(Severity::Note) > 0    ? kWithNotes
                                             : kClean;
}

FleetPageRow PageRowOf(const LintFleet& fleet, const LintFleetRow& row) {
    const auto number = [&row](std::uint32_t count) {
        return !row.isAsked ? std::string("?") : count == 0 ? "-" : std::to_string(count);
    };
    FleetPageRow line;
    line.kind = KindOf(row);
    line.cells = {row.file,
                  number(row.Told(Severity::Error)),
                  number(row.Told(Severity::Warning)),
                  number(row.Told(Severity::Note)),
                  number(row.accepted),
                  row.first};
    for (const LintElement& element : ElementsOf(fleet, row)) {
        const Json& mix = element.finding.contains("mix") ? element.finding["mix"] : Json();
        const std::string accepted = element.Text("accepted");
        line.details.push_back({element.isError    ? "not asked"
                                : accepted.empty() ? element.Severity()
                                                   : "accepted",
                                element.Text("id"), mix.is_null() ? "" : mix.dump(),
                                element.Text("pointer"), element.Text("message"),
                                accepted.empty() ? element.Text("advice") : accepted});
    }
    return line;
}

}  // namespace

std::string
LintFleetPage(const LintFleet& fleet, Envelope envelope, const std::string& commandLine) {
    FleetPage page;
    page.title = "What is wrong with these dispensers";
    page.verdict = LintFleetVerdict(fleet);
    if (!fleet.isComplete) {
        page.verdict += "\nInterrupted after " + CountText(fleet.rows.size(), "dispenser") + ".";
    }
    page.columns = {"Dispenser", "Errors#", "Warnings#", "Notes#", "Accepted#", "First finding"};
    page.kinds = {{"cannot be asked", 'X', Outcome::NoAnswer},
                  {"with errors", 'E', Outcome::Overpaid},
                  {"with warnings", 'w', Outcome::NotDispensable},
                  {"with notes", 'n', Outcome::NothingPaid},
                  {"clean", '.', Outcome::Paid}};
    page.caption = "what was found";
    page.detailColumns = {"Severity", "Id", "Mix#", "Field", "What", "Do, or why it is accepted"};
    page.nothing = "Nothing was found.";
    for (const LintFleetRow* row : WorstFirst(fleet)) {
        page.Add(PageRowOf(fleet, *row));
    }
    // The rows have the dispensers, in less room.
    envelope.result = {{"totals", LintTotalsJson(fleet)}};
    return page.Text(envelope, {{"Dispensers", std::to_string(fleet.named)}}, commandLine);
}

}  // namespace qxmix
