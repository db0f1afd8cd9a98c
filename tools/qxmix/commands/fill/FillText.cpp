#include "FillForms.h"

#include "dispenser/CassetteNames.h"
#include "terminal/Table.h"

#include <algorithm>

namespace qxmix {

namespace {

using Align = Table::Align;

constexpr const char* kNone = "-";

std::string RunsWith(const std::vector<std::optional<FillOutcome>>& outcomes, std::size_t place) {
    const bool isThere = place < outcomes.size() && outcomes[place];
    return isThere ? std::to_string(outcomes[place]->reaching) : kNone;
}

/// The cassettes of the best mix.
Table CassetteTable(const FillReport& report, const MixFill& best, std::size_t labelWidth) {
    const Dispenser& dispenser = report.questions.dispenser;
    const FillProposal& load = *best.load;
    const CassetteNames names(load.loaded);
    Table table({{Align::Left, 1, 0},
                 {Align::Right, 2, 7},
                 {Align::Right, 2, 7},
                 {Align::Right, 2, 8},
                 {Align::Right, 2, 5},
                 {Align::Right, 2, 5},
                 {Align::Left, 2, 12}});
    table.AddRow({"cassette", "now", "load", "capacity", "less", "more", "runs low"});
    std::size_t place = 0;
    for (std::size_t index = 0; index < dispenser.cassettes.size(); ++index) {
        const Cassette& cassette = dispenser.cassettes[index];
        const bool isLoaded = place < report.answers.cassettes.size() &&
                              report.answers.cassettes[place].cassette == index;
        const auto low = load.outcome.low[index];
        const bool isOther = cassette.value != load.loaded.cassettes[index].value;
        table.AddRow({names.Text(index, labelWidth),
                      std::to_string(cassette.count) +
                          (isOther ? " x " + std::to_string(cassette.value) : ""),
                      isLoaded ? std::to_string(load.loaded.cassettes[index].count) : "as now",
                      cassette.capacity ? std::to_string(*cassette.capacity) : kNone,
                      isLoaded ? RunsWith(load.less, place) : kNone,
                      isLoaded ? RunsWith(load.more, place) : kNone,
                      low ? report.demands.front()->calendar.ShortText(*low) : "never"});
        place += isLoaded ? 1 : 0;
    }
    return table;
}

std::string CassettesText(const FillReport& report, const MixFill& best, const Painter& painter) {
    const CassetteNames names(best.load->loaded);
    const Table table = FitLabels(OutputWidth(), names.LongestLabel(), [&](std::size_t width) {
        return CassetteTable(report, best, width);
    });
    return table.Text(painter) + "less, more: runs that serve " + report.questions.serviceText +
           " % with a bundle less or more\n";
}

/// Why a mix has no loading that reaches the service; empty: it has one.
std::string EndingText(const FillReport& report, const MixFill& mix) {
    if (!mix.isComplete) {
        return "not finished";
    }
    if (!mix.load) {
        return "dangerous: not proposed";
    }
    return mix.isReached ? "" : "below " + report.questions.serviceText + " %";
}

/// What a mix loads, and how it serves the customers.
void AddLoadCells(const FillReport& report, const MixFill& mix, std::vector<Cell>& cells) {
    if (!mix.load) {
        cells.insert(cells.end(), 4, kNone);
        return;
    }
    const FillOutcome& outcome = mix.load->outcome;
    cells.insert(cells.end(), {report.MoneyText(outcome.worth), PercentText(outcome.median) + "%",
                               PercentText(outcome.worst) + "%", std::to_string(outcome.reaching)});
}

/// All mixes, the best first; with what they cost where that decides.
Table MixTable(const FillReport& report) {
    const bool hasCosts = !report.intervals.empty();
    std::vector<Table::Column> columns = {{Align::Right, 0, 4}, {Align::Right, 1, 4},
                                          {Align::Right, 2, 9}, {Align::Right, 2, 7},
                                          {Align::Right, 2, 7}, {Align::Right, 2, 5}};
    std::vector<Cell> headings = {"rank", "mix", "load", "median", "worst", "runs"};
    if (hasCosts) {
        columns.push_back({Align::Right, 2, 10});
        headings.emplace_back("cost a day");
    }
    columns.push_back({Align::Left, 2, 10});
    headings.emplace_back("");
    Table table(columns);
    table.AddRow(headings);
    std::size_t rank = 0;
    for (const MixFill& mix : report.answers.mixes) {
        std::vector<Cell> cells = {mix.load && mix.isReached ? std::to_string(++rank) : kNone,
                                   std::to_string(mix.mix)};
        AddLoadCells(report, mix, cells);
        if (hasCosts) {
            const std::optional<Money> cost = report.CostOf(mix);
            cells.emplace_back(cost ? cost->Text(2) : kNone);
        }
        cells.emplace_back(EndingText(report, mix));
        table.AddRow(cells);
    }
    return table;
}

/// The numbers of days, each with its best mix.
Table IntervalTable(const FillReport& report) {
    Table table({{Align::Right, 0, 4},
                 {Align::Right, 1, 4},
                 {Align::Right, 2, 9},
                 {Align::Right, 2, 7},
                 {Align::Right, 2, 7},
                 {Align::Right, 2, 5},
                 {Align::Right, 2, 10},
                 {Align::Left, 2, 10}});
    table.AddRow({"days", "mix", "load", "median", "worst", "runs", "cost a day", ""});
    for (const FillInterval& interval : report.intervals) {
        const MixFill& mix = interval.best;
        std::vector<Cell> cells = {std::to_string(interval.days), std::to_string(mix.mix)};
        AddLoadCells(report, mix, cells);
        const bool isProposed = mix.load && interval.days == report.questions.Days();
        const std::string ending = EndingText(report, mix);
        cells.emplace_back(interval.cost ? interval.cost->Text(2) : kNone);
        cells.emplace_back(ending.empty() && isProposed ? "least" : ending);
        table.AddRow(cells);
    }
    return table;
}

}  // namespace

std::string FillText(const FillReport& report, bool isQuiet, const Painter& painter) {
    const MixFill* const best = report.Best();
    const bool isBad = report.status == ExitStatus::Danger;
    std::string text;
    for (const std::string& line : report.headline) {
        text += painter.Paint(line, isBad ? RowOf(Outcome::Overpaid).terminalStyle : "") + "\n";
    }
    if (!report.intervals.empty()) {
        text += "\n" + IntervalTable(report).Text(painter);
    }
    if (report.answers.mixes.size() > 1) {
        text += "\n" + MixTable(report).Text(painter);
        text += best == nullptr ? "" : "\nmix " + std::to_string(best->mix) + "\n";
    } else {
        text += best == nullptr ? "" : "\n";
    }
    if (best != nullptr) {
        text += CassettesText(report, *best, painter) + "\n";
    }
    for (const std::string& remark : report.remarks) {
        text += remark + "\n";
    }
    text += FindingsText(report.findings, isQuiet, painter);
    return text + (report.answers.isComplete ? "" : "interrupted: the best so far\n");
}

}  // namespace qxmix
