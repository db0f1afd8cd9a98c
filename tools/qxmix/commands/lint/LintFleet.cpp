#include "LintFleet.h"

#include <algorithm>
#include <map>

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

ExitStatus LintFleet::Status() const {
    if (!isComplete) {
        return ExitStatus::Interrupted;
    }
    ExitStatus status = ExitStatus::Well;
    for (const LintFleetRow& row : rows) {
        status = std::max(status, row.status);
    }
    return status;
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
                  const OpenOrder& order,
                  std::size_t jobs,
                  const ProgressListener& listen,
                  const DispenserWork& work) {
    fleet.named = names.size();
    std::map<std::size_t, LintFleetRow> rows;  // by place: they come as they are ready
    const auto keep = [&](std::size_t place, const std::string& bytes, const std::string& crash) {
        const LintFleetReport report =
            bytes.empty() ? ReportOf(names[place], WorkError("its worker ended: " + crash))
                          : ReadReport(names[place], bytes);
        rows.emplace(place, PutAway(report, fleet.spool));
    };
    fleet.isComplete = AskFleet(names, order, jobs, listen, work, keep);
    for (auto& [place, row] : rows) {
        fleet.rows.push_back(std::move(row));
    }
}

}  // namespace qxmix
