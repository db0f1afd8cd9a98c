#include "LintFleet.h"

#include <utility>

namespace qxmix {

namespace {

LintFleetRow PutAway(LintFleetReport report, Spool& spool) {
    report.row.json = spool.Add(report.json);
    report.row.text = spool.Add(report.text);
    report.row.places = spool.Add(report.places);
    return std::move(report.row);
}

}  // namespace

void LintFleet::Keep(const LintFleetReport& report) {
    rows.push_back(PutAway(report, spool));
    named = rows.size();
}

LintFleetTotals TotalsOf(const LintFleet& fleet) {
    LintFleetTotals totals;
    for (const LintFleetRow& row : fleet.rows) {
        totals.accepted += row.accepted;
        ++(!row.isAsked                      ? totals.notAsked
           : row.Told(Severity::Error) > 0   ? totals.withErrors
           : row.Told(Severity::Warning) > 0 ? totals.withWarnings
           : row.Told(Severity::Note) > 0    ? totals.withNotes
                                             : totals.clean);
    }
    return totals;
}

void AskLintFleet(LintFleet& fleet,
                  const std::vector<std::string>& names,
                  const FleetWorkers& workers,
                  const DispenserWork& work) {
    fleet.Ask(names, workers, work,
              [&fleet](const std::string& name, const std::string& bytes, const WorkError& error) {
                  return PutAway(bytes.empty() ? ReportOf(name, error) : ReadReport(name, bytes),
                                 fleet.spool);
              });
}

}  // namespace qxmix
