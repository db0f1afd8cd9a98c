#include "ExplainForms.h"

#include "dispenser/UnitNames.h"
#include "terminal/Table.h"
#include "text/TextList.h"

#include <algorithm>

namespace qxmix {

namespace {

using Align = Table::Align;

constexpr std::size_t kStatusWidth = 17;
constexpr std::size_t kLongestStatuses = 24;
constexpr std::size_t kShortLabel = 8;

/// Labels of a unit's cassettes: "2 3".
std::string LabelsText(const Dispenser& dispenser, const Unit& unit) {
    std::vector<std::string> labels;
    for (const std::size_t cassette : unit.cassettes) {
        labels.push_back(Printable(CassetteLabel(dispenser, cassette)));
    }
    return Join(labels, " ");
}

/// The statuses of a unit's cassettes, once where all have the same.
std::string StatusesText(const Dispenser& dispenser, const Unit& unit, std::size_t width) {
    std::vector<std::string> statuses;
    for (const std::size_t cassette : unit.cassettes) {
        statuses.push_back(StatusNames().Text(dispenser.cassettes[cassette].status));
    }
    const bool areSame =
        std::all_of(statuses.begin(), statuses.end(),
                    [&statuses](const auto& status) { return status == statuses.front(); });
    const std::string text = areSame ? statuses.front() : Join(statuses, " ");
    return text.size() > width ? CutToColumns(text, width - 2) + ".." : text;
}

std::string CountReason(const Unit& unit) {
    return unit.counted == 0 ? "no: nothing counts" : "no: reads as negative";
}

std::string DropText(const Dispenser& dispenser, const Unit& unit, std::uint32_t minimum) {
    switch (*unit.dropped) {
    case Dropped::Type:
        return "no: type " + TypeNames().Text(unit.type);
    case Dropped::Status:
        return (unit.cassettes.size() == 1 ? "no: " : "no: together ") +
               StatusNames().Text(unit.status);
    case Dropped::Minimum:
        return "no: " + std::to_string(unit.counted) + ", minimum " + std::to_string(minimum);
    case Dropped::Count:
        return CountReason(unit);
    case Dropped::Value:
        return "no: worth nothing";
    case Dropped::Currency:
        break;
    }
    return "no: currency is not " + dispenser.currency;
}

const char* OrdinalText(std::size_t order) {
    static const char* const ordinals[] = {"first", "second", "third", "fourth", "fifth", "sixth"};
    return ordinals[order];
}

/// What the search takes of a unit, if that is known.
std::string TakesText(const Explanation& story, const Unit& unit) {
    const std::uint32_t taken = story.taken.empty() ? 0 : story.taken[unit.order];
    return taken == 0 ? "-" : std::to_string(taken);
}

std::string NoteText(const Dispenser& dispenser, const Unit& unit, std::size_t width) {
    const std::string worth = dispenser.cassettes[unit.cassettes.front()].Worth().ShortText();
    return std::string(width - worth.size(), ' ') + worth + " " +
           dispenser.cassettes[unit.cassettes.front()].currency;
}

Table UnitTable(const Dispenser& dispenser,
                const Explanation& story,
                std::size_t labelWidth,
                std::size_t statusWidth) {
    std::size_t worthWidth = 0;
    for (const Unit& unit : story.units.All()) {
        const Money worth = dispenser.cassettes[unit.cassettes.front()].Worth();
        worthWidth = std::max(worthWidth, worth.ShortText().size());
    }
    const bool hasTaken = !story.taken.empty();
    std::vector<Table::Column> columns = {{Align::Left, 1, 0},
                                          {Align::Left, 2, 0},
                                          {Align::Left, 3, hasTaken ? 0 : kStatusWidth},
                                          {Align::Right, 3, 0}};
    std::vector<Cell> heading = {"cassettes", "note", "status", "counts as"};
    if (hasTaken) {
        columns.push_back({Align::Right, 2, 0});
        const bool isRefused = story.answer.returned != 0;
        heading.emplace_back(isRefused ? "needs" : "takes");
    }
    columns.push_back({Align::Left, 2, 0});
    heading.emplace_back("used");
    Table table(columns);
    table.AddRow(heading);
    for (const Unit& unit : story.units.All()) {
        const bool isKept = !unit.dropped;
        std::vector<Cell> row = {CutToColumns(LabelsText(dispenser, unit), labelWidth),
                                 NoteText(dispenser, unit, worthWidth),
                                 StatusesText(dispenser, unit, statusWidth),
                                 isKept ? std::to_string(unit.counted) : "-"};
        if (hasTaken) {
            row.emplace_back(isKept ? TakesText(story, unit) : "-");
        }
        row.emplace_back(isKept ? OrdinalText(unit.order)
                                : DropText(dispenser, unit, story.units.Minimum()));
        table.AddRow(row);
    }
    return table;
}

}  // namespace

std::string
UnitsText(const MixQuestions& questions, const Explanation& story, const Painter& painter) {
    std::size_t longest = 0;
    for (const Unit& unit : story.units.All()) {
        longest = std::max(longest, ColumnsOf(LabelsText(questions.dispenser, unit)));
    }
    const Dispenser& dispenser = questions.dispenser;
    const Table table = FitLabels(OutputWidth(), longest, [&](std::size_t width) {
        return UnitTable(dispenser, story, width, kLongestStatuses);
    });
    if (table.Width() <= OutputWidth()) {
        return table.Text(painter);
    }
    return FitLabels(OutputWidth(), kLongestStatuses,
                     [&](std::size_t width) {
                         return UnitTable(dispenser, story, std::min(longest, kShortLabel), width);
                     })
        .Text(painter);
}

}  // namespace qxmix
