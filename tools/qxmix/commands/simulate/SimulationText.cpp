#include "SimulationForms.h"

#include "dispenser/ReadableMoney.h"
#include "terminal/Table.h"

#include <algorithm>

namespace qxmix {

namespace {

using Align = Table::Align;

constexpr std::size_t kLabelColumns = 8;
constexpr const char* kNone = "none";

std::string DashForZero(std::uint64_t number) {
    return number == 0 ? "-" : std::to_string(number);
}

std::string LeftPadded(const std::string& text, std::size_t width) {
    return std::string(width - std::min(width, text.size()), ' ') + text;
}

std::string TenthsText(std::uint64_t tenths) {
    return std::to_string(tenths / 10) + "." + std::to_string(tenths % 10);
}

std::string RankText(const SimulationRow& row) {
    return row.rank ? std::to_string(*row.rank) : "-";
}

std::string LeftText(const Dispenser& dispenser, const std::optional<Money>& left) {
    return left ? ReadableText(*left, AmountDecimals(dispenser)) : "-";
}

std::string EmptiedText(const SimulationReport& report, const SimulationSummary& summary) {
    if (summary.emptied.empty()) {
        return kNone;
    }
    const SimulationSummary::Emptied& first = summary.emptied.front();
    const std::string label = Printable(CassetteLabel(report.questions.dispenser, first.cassette));
    return report.answers.demand.calendar.ShortText(first.time) + " " +
           CutToColumns(label, kLabelColumns);
}

}  // namespace

std::string PercentText(std::uint64_t part, std::uint64_t whole) {
    if (whole == 0) {
        return "-";
    }
    std::uint64_t thousandths = (part * 2000 + whole) / (whole * 2);
    thousandths = part < whole ? std::min<std::uint64_t>(thousandths, 999) : thousandths;
    return std::to_string(thousandths / 10) + "." + std::to_string(thousandths % 10) + "%";
}

std::string ServedText(std::uint64_t served, std::uint64_t whole) {
    return LeftPadded(std::to_string(served), 5) + " " + LeftPadded(PercentText(served, whole), 6);
}

std::string RefusalText(const SimulationReport& report, const SimulationSummary& summary) {
    if (!summary.firstRefusal) {
        return kNone;
    }
    const Withdrawal& asked = summary.firstRefusal->asked;
    const Dispenser& dispenser = report.questions.dispenser;
    const Demand& demand = report.answers.demand;
    const std::string currency = asked.currency == 0 ? "" : " " + demand.currencies[asked.currency];
    return demand.calendar.ShortText(asked.time) + " " +
           ReadableText(AskedMoney(dispenser, asked.amount), AmountDecimals(dispenser)) + currency;
}

namespace {

/// The table of one run.
Table OneRunTable(const SimulationReport& report) {
    Table table({{Align::Right, 0, 4},
                 {Align::Right, 1, 3},
                 {Align::Left, 2, 12},
                 {Align::Right, 1, 7},
                 {Align::Right, 1, 6},
                 {Align::Right, 1, 5},
                 {Align::Left, 2, 13},
                 {Align::Left, 2, 11},
                 {Align::Right, 1, 7}});
    table.AddRow({"rank", "mix", "served", "refused", "danger", "items", "first refusal",
                  "first empty", "left"});
    for (const SimulationRow& row : report.rows) {
        const SimulationSummary& summary = report.First(row);
        const std::string style = row.rank ? "" : RowOf(Outcome::Overpaid).terminalStyle;
        table.AddRow({{RankText(row), style},
                      {std::to_string(row.mix), style},
                      ServedText(summary.Served(), report.withdrawals),
                      DashForZero(summary.Refused()),
                      {DashForZero(summary.Dangerous()), style},
                      TenthsText(summary.TenthsPerWithdrawal()),
                      RefusalText(report, summary),
                      EmptiedText(report, summary),
                      LeftText(report.questions.dispenser, row.left.median)});
    }
    return table;
}

std::string TimeText(const SimulationReport& report, const std::optional<std::int64_t>& time) {
    return time ? report.answers.demand.calendar.ShortText(*time) : kNone;
}

/// The table of many runs: medians, and the range of what is served.
///
/// @param hasEmpty  whether it says when the first cassette ran empty.
Table ManyRunsTable(const SimulationReport& report, bool hasEmpty) {
    std::vector<Table::Column> columns = {
        {Align::Right, 0, 4}, {Align::Right, 1, 3}, {Align::Left, 1, 12}, {Align::Right, 1, 7},
        {Align::Right, 1, 7}, {Align::Right, 1, 6}, {Align::Right, 1, 5}, {Align::Left, 1, 11}};
    std::vector<Cell> headings = {"rank",    "mix",    "served", "range",
                                  "refused", "danger", "items",  "1st refusal"};
    if (hasEmpty) {
        columns.push_back({Align::Left, 1, 9});
        headings.emplace_back("1st empty");
    }
    columns.push_back({Align::Right, 1, 0});
    headings.emplace_back("left");
    Table table(columns);
    table.AddRow(headings);
    for (const SimulationRow& row : report.rows) {
        const std::string style = row.rank ? "" : RowOf(Outcome::Overpaid).terminalStyle;
        std::vector<Cell> cells = {{RankText(row), style},
                                   {std::to_string(row.mix), style},
                                   ServedText(row.served.median, report.withdrawals),
                                   std::to_string(row.served.least) + "-" +
                                       std::to_string(row.served.most),
                                   DashForZero(row.refused.median),
                                   {DashForZero(row.dangerousRuns), style},
                                   TenthsText(row.tenths.median),
                                   TimeText(report, row.firstRefusal.median)};
        if (hasEmpty) {
            cells.emplace_back(TimeText(report, row.firstEmpty.median));
        }
        cells.emplace_back(LeftText(report.questions.dispenser, row.left.median));
        table.AddRow(cells);
    }
    return table;
}

/// The table, in 80 columns if that can be.
Table FittingTable(const SimulationReport& report) {
    const SimulationQuestions& questions = report.questions;
    Table table = questions.runs == 1 ? OneRunTable(report) : ManyRunsTable(report, true);
    if (table.Width() > kPlainWidth && questions.runs > 1) {
        table = ManyRunsTable(report, false);
    }
    if (table.Width() > kPlainWidth) {
        table.Narrow();
    }
    return table;
}

std::string InterruptionText(const SimulationReport& report) {
    const SimulationQuestions& questions = report.questions;
    const SimulationAnswers& answers = report.answers;
    if (answers.isComplete) {
        return "";
    }
    const std::vector<Withdrawal>& done = answers.demand.withdrawals;
    if (answers.wholeRuns > 0) {
        return "interrupted after " + std::to_string(answers.wholeRuns) + " of " +
               std::to_string(questions.runs) + " runs\n";
    }
    const std::string where =
        done.empty() ? "before the first" : "at " + answers.demand.calendar.Text(done.back().time);
    return "interrupted " + where + ", " + std::to_string(done.size()) + " of " +
           std::to_string(answers.planned) + " withdrawals" +
           (questions.runs > 1 ? ", no run of " + std::to_string(questions.runs) + " at its end"
                               : "") +
           "\n";
}

}  // namespace

std::string SimulationText(const SimulationReport& report, bool isQuiet, const Painter& painter) {
    std::string text = report.best + "\n";
    if (!report.danger.empty()) {
        text += painter.Paint(report.danger, RowOf(Outcome::Overpaid).terminalStyle) + "\n";
    }
    text += "\n" + FittingTable(report).Text(painter);
    const std::string& currency = report.questions.dispenser.currency;
    if (report.questions.runs == 1) {
        text += "items per withdrawal served; first refusal with its amount; left: " + currency +
                " then\n";
        for (const std::string& remark : report.remarks) {
            text += remark + "\n";
        }
    } else {
        text += "medians, and the range of what is served; danger: runs with any\n"
                "items per withdrawal served; left: " +
                currency + " at the first refusal\n";
    }
    return text + FindingsText(report.questions.Notes(), isQuiet, painter) +
           InterruptionText(report);
}

}  // namespace qxmix
