#include "SimulationText.h"

#include "SimulationRanking.h"
#include "SimulationVerdict.h"
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

/// "99.3%": never 100 % of what is not all.
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

std::string TenthsText(std::uint64_t tenths) {
    return std::to_string(tenths / 10) + "." + std::to_string(tenths % 10);
}

std::string RankText(const SimulationRow& row) {
    return row.rank ? std::to_string(*row.rank) : "-";
}

std::string LeftText(const Dispenser& dispenser, const std::optional<Money>& left) {
    return left ? ReadableText(*left, AmountDecimals(dispenser)) : "-";
}

std::string RefusalText(const SimulationQuestions& questions,
                        const SimulationAnswers& answers,
                        const SimulationSummary& summary) {
    if (!summary.firstRefusal) {
        return kNone;
    }
    const Withdrawal& asked = summary.firstRefusal->asked;
    const Dispenser& dispenser = questions.dispenser;
    const std::string currency =
        asked.currency == 0 ? "" : " " + answers.demand.currencies[asked.currency];
    return answers.demand.calendar.ShortText(asked.time) + " " +
           ReadableText(AskedMoney(dispenser, asked.amount), AmountDecimals(dispenser)) + currency;
}

std::string EmptiedText(const SimulationQuestions& questions,
                        const SimulationAnswers& answers,
                        const SimulationSummary& summary) {
    if (summary.emptied.empty()) {
        return kNone;
    }
    const SimulationSummary::Emptied& first = summary.emptied.front();
    const std::string label = Printable(CassetteLabel(questions.dispenser, first.cassette));
    return answers.demand.calendar.ShortText(first.time) + " " + CutToColumns(label, kLabelColumns);
}

/// The table of one run.
Table OneRunTable(const SimulationQuestions& questions,
                  const SimulationAnswers& answers,
                  const std::vector<SimulationRow>& rows) {
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
    for (const SimulationRow& row : rows) {
        const SimulationSummary& summary = answers.runs.front()[row.place];
        const std::string style = row.rank ? "" : RowOf(Outcome::Overpaid).terminalStyle;
        table.AddRow({{RankText(row), style},
                      {std::to_string(row.mix), style},
                      ServedText(summary.Served(), answers.demand.withdrawals.size()),
                      DashForZero(summary.Refused()),
                      {DashForZero(summary.Dangerous()), style},
                      TenthsText(summary.TenthsPerWithdrawal()),
                      RefusalText(questions, answers, summary),
                      EmptiedText(questions, answers, summary),
                      LeftText(questions.dispenser, row.left.median)});
    }
    return table;
}

std::string TimeText(const SimulationAnswers& answers, const std::optional<std::int64_t>& time) {
    return time ? answers.demand.calendar.ShortText(*time) : kNone;
}

/// The table of many runs: medians, and the range of what is served.
///
/// @param hasEmpty  whether it says when the first cassette ran empty.
Table ManyRunsTable(const SimulationQuestions& questions,
                    const SimulationAnswers& answers,
                    const std::vector<SimulationRow>& rows,
                    bool hasEmpty) {
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
    for (const SimulationRow& row : rows) {
        const std::string style = row.rank ? "" : RowOf(Outcome::Overpaid).terminalStyle;
        std::vector<Cell> cells = {{RankText(row), style},
                                   {std::to_string(row.mix), style},
                                   ServedText(row.served.median, answers.demand.withdrawals.size()),
                                   std::to_string(row.served.least) + "-" +
                                       std::to_string(row.served.most),
                                   DashForZero(row.refused.median),
                                   {DashForZero(row.dangerousRuns), style},
                                   TenthsText(row.tenths.median),
                                   TimeText(answers, row.firstRefusal.median)};
        if (hasEmpty) {
            cells.emplace_back(TimeText(answers, row.firstEmpty.median));
        }
        cells.emplace_back(LeftText(questions.dispenser, row.left.median));
        table.AddRow(cells);
    }
    return table;
}

/// The table, in 80 columns if that can be.
Table FittingTable(const SimulationQuestions& questions,
                   const SimulationAnswers& answers,
                   const std::vector<SimulationRow>& rows) {
    Table table = questions.runs == 1 ? OneRunTable(questions, answers, rows)
                                      : ManyRunsTable(questions, answers, rows, true);
    if (table.Width() > kPlainWidth && questions.runs > 1) {
        table = ManyRunsTable(questions, answers, rows, false);
    }
    if (table.Width() > kPlainWidth) {
        table.Narrow();
    }
    return table;
}

std::string InterruptionText(const SimulationQuestions& questions,
                             const SimulationAnswers& answers) {
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

std::string SimulationText(const SimulationQuestions& questions,
                           const SimulationAnswers& answers,
                           bool isQuiet,
                           const Painter& painter) {
    const std::vector<SimulationRow> rows = RankMixes(questions, answers);
    const SimulationVerdict verdict = VerdictOf(questions, answers, rows);
    const bool isOneRun = questions.runs == 1;
    std::string text = verdict.best + "\n";
    if (!verdict.danger.empty()) {
        text += painter.Paint(verdict.danger, RowOf(Outcome::Overpaid).terminalStyle) + "\n";
    }
    text += "\n" + FittingTable(questions, answers, rows).Text(painter);
    const std::string& currency = questions.dispenser.currency;
    if (isOneRun) {
        text += "items per withdrawal served; first refusal with its amount; left: " + currency +
                " then\n";
        for (const std::string& remark : RemarksOn(answers, rows)) {
            text += remark + "\n";
        }
    } else {
        text += "medians, and the range of what is served; danger: runs with any\n"
                "items per withdrawal served; left: " +
                currency + " at the first refusal\n";
    }
    return text + FindingsText(questions.Notes(), isQuiet, painter) +
           InterruptionText(questions, answers);
}

}  // namespace qxmix
