#include "LintFleetForms.h"

#include "LintForms.h"
#include "answers/Outcome.h"
#include "fleet/FleetText.h"
#include "terminal/Table.h"
#include "text/TextList.h"

#include <algorithm>
#include <tuple>

namespace qxmix {

namespace {

using Align = Table::Align;

constexpr std::size_t kNumberColumns = 24;  // those of the three numbers, and the gaps beside them
constexpr std::size_t kShortestFinding = 16;

Cell NumberCell(const LintFleetRow& row, Severity severity) {
    if (!row.isAsked) {
        return "?";
    }
    const std::uint32_t number = row.Told(severity);
    return number == 0 ? "-" : std::to_string(number);
}

std::string TableText(const std::vector<const LintFleetRow*>& rows, const Painter& painter) {
    std::size_t longest = 9;
    for (const LintFleetRow* row : rows) {
        longest = std::max(longest, ColumnsOf(NameInTable(row->file)));
    }
    const std::size_t used = 1 + longest + kNumberColumns;
    const std::size_t left =
        std::max(OutputWidth() - std::min(OutputWidth(), used), kShortestFinding);
    Table table({{Align::Left, 1, longest},
                 {Align::Right, 2, 6},
                 {Align::Right, 1, 8},
                 {Align::Right, 1, 5},
                 {Align::Left, 2, 0}});
    table.AddRow({"dispenser", "errors", "warnings", "notes", "first finding"});
    for (const LintFleetRow* row : rows) {
        const bool isBad = row->status >= ExitStatus::Danger;
        table.AddRow({{NameInTable(row->file), isBad ? RowOf(Outcome::Overpaid).terminalStyle : ""},
                      NumberCell(*row, Severity::Error),
                      NumberCell(*row, Severity::Warning),
                      NumberCell(*row, Severity::Note),
                      CutToFit(row->first, left)});
    }
    return table.Text(painter);
}

}  // namespace

std::string LintFleetVerdict(const LintFleet& fleet) {
    const LintFleetTotals totals = TotalsOf(fleet);
    std::vector<std::string> parts;
    const auto add = [&parts](std::size_t count, const char* one, const char* several) {
        if (count > 0) {
            parts.push_back(std::to_string(count) + " " + (count == 1 ? one : several));
        }
    };
    add(totals.withErrors, "has errors", "have errors");
    add(totals.withWarnings, "has warnings", "have warnings");
    add(totals.notAsked, "cannot be asked", "cannot be asked");
    const std::string all = CountText(fleet.rows.size(), "dispenser");
    const std::string accepted =
        totals.accepted == 0 ? "" : "; " + CountText(totals.accepted, "finding") + " accepted";
    if (!parts.empty()) {
        return "Of " + all + " " + Join(parts, ", ") + accepted;
    }
    return (totals.withNotes > 0 ? "nothing worse than notes in " : "nothing found in ") + all +
           accepted;
}

std::vector<const LintFleetRow*> WorstFirst(const LintFleet& fleet) {
    std::vector<const LintFleetRow*> rows;
    for (const LintFleetRow& row : fleet.rows) {
        rows.push_back(&row);
    }
    const auto badness = [](const LintFleetRow& row) {
        return std::make_tuple(row.status, row.Told(Severity::Error), row.Told(Severity::Warning),
                               row.Told(Severity::Note));
    };
    std::stable_sort(rows.begin(), rows.end(), [&](const auto* one, const auto* other) {
        return badness(*one) > badness(*other);
    });
    return rows;
}

void WriteFleetText(const LintFleet& fleet,
                    bool hasAll,
                    const Painter& painter,
                    const TakePart& take) {
    const std::vector<const LintFleetRow*> rows = WorstFirst(fleet);
    take(LintFleetVerdict(fleet) + "\n");
    if (!rows.empty()) {
        take("\n" + TableText(rows, painter));
    }
    for (const LintFleetRow* row : rows) {
        if (hasAll) {
            take("\n" + Printable(row->file) + "\n" + fleet.spool.Read(row->text));
        }
    }
    if (!fleet.isComplete) {
        take(FleetInterruption(fleet.rows.size(), fleet.named));
    }
}

}  // namespace qxmix
