#include "CompareForms.h"

#include "dispenser/ReadableMoney.h"
#include "terminal/Table.h"
#include "text/TextList.h"

#include <algorithm>

namespace qxmix {

namespace {

using Align = Table::Align;

/// More rows than anybody reads are in the JSON form only.
constexpr std::size_t kMostRows = 40;

struct Part {
    Change change;
    const char* one;
    const char* many;
};

constexpr Part kParts[] = {
    {Change::Danger, "is dangerous", "are dangerous"},
    {Change::Lost, "is no longer paid", "are no longer paid"},
    {Change::Other, "gets other notes", "get other notes"},
    {Change::Gained, "is newly paid", "are newly paid"},
    {Change::Same, "is the same", "are the same"},
};

/// On which side answers are dangerous: " on one side", " on both sides", " (2 of them on both
/// sides)".
std::string SidesText(const CompareAnswers& answers) {
    const std::uint64_t both = answers.bothDangers;
    return both == 0 ? " on one side"
           : both == answers.Count(Change::Danger)
               ? " on both sides"
               : " (" + std::to_string(both) + " of them on both sides)";
}

/// Refused in another way is no matter of notes.
std::string WordsOf(const Part& part, const CompareAnswers& answers, bool isOne) {
    if (part.change == Change::Other && answers.isOtherwise) {
        return isOne ? "is answered otherwise" : "are answered otherwise";
    }
    return isOne ? part.one : part.many;
}

std::string
Headline(const CompareQuestions& questions, const CompareAnswers& answers, const Painter& painter) {
    const bool isOneMix = questions.a.mixes.size() == 1;
    const std::string all =
        std::to_string(answers.Count(Change::Same) + answers.differences.size()) +
        (isOneMix ? " amounts" : " answers");
    std::vector<std::string> parts;
    for (const Part& part : kParts) {
        const std::uint64_t count = answers.Count(part.change);
        if (count != 0) {
            parts.push_back(std::to_string(count) + (parts.empty() ? " of " + all : "") + " " +
                            WordsOf(part, answers, count == 1) +
                            (part.change == Change::Danger ? SidesText(answers) : ""));
        }
    }
    if (answers.differences.empty()) {
        parts = {"All " + all + " are the same"};
    }
    if (answers.sameDangers != 0) {
        parts.push_back(std::to_string(answers.sameDangers) + " of them dangerous");
    }
    const bool isDangerous = answers.sameDangers + answers.Count(Change::Danger) != 0;
    return (isDangerous ? painter.Paint("DANGER", RowOf(Outcome::Overpaid).terminalStyle) + "  "
                        : "") +
           Join(parts, ", ") + "\n";
}

/// Neighbouring amounts with the same two answers.
struct Stretch {
    const CompareDifference* first;
    const CompareDifference* last;
    std::uint64_t amounts;
};

/// @param byOutcome  notes may differ within a stretch.
std::vector<Stretch>
StretchesOf(const CompareQuestions& questions, const CompareAnswers& answers, bool byOutcome) {
    std::vector<Stretch> stretches;
    for (const CompareDifference& next : answers.differences) {
        if (!stretches.empty()) {
            Stretch& stretch = stretches.back();
            const CompareDifference& last = *stretch.last;
            const bool isAlike =
                byOutcome ? last.a.outcome == next.a.outcome && last.b.outcome == next.b.outcome
                          : last.textA == next.textA && last.textB == next.textB;
            if (isAlike && last.change == next.change && last.mixA == next.mixA &&
                next.amount - last.amount == questions.a.step) {
                stretch.last = &next;
                ++stretch.amounts;
                continue;
            }
        }
        stretches.push_back({&next, &next, 1});
    }
    return stretches;
}

std::string AmountText(const Dispenser& dispenser, const Stretch& stretch) {
    const unsigned decimals = AmountDecimals(dispenser);
    const std::string first = ReadableText(AskedMoney(dispenser, stretch.first->amount), decimals);
    return stretch.amounts == 1
               ? first
               : first + "-" + ReadableText(AskedMoney(dispenser, stretch.last->amount), decimals);
}

std::string MixText(const CompareDifference& difference) {
    const std::string mix = std::to_string(difference.mixA);
    return difference.mixA == difference.mixB ? mix : mix + "/" + std::to_string(difference.mixB);
}

/// The notes of the first amount, and a sign that those of the others differ.
std::string SideText(const std::string& text, bool isFirstOfMany) {
    return text + (isFirstOfMany && text.find("  ") != std::string::npos ? " ..." : "");
}

std::string TableText(const CompareQuestions& questions,
                      const CompareAnswers& answers,
                      const std::array<std::string, 2>& names,
                      const Painter& painter) {
    constexpr std::size_t kMostName = 30;
    std::vector<Stretch> stretches = StretchesOf(questions, answers, false);
    const bool byOutcome = stretches.size() > kMostRows;
    if (byOutcome) {
        stretches = StretchesOf(questions, answers, true);
    }
    const bool hasMixes = questions.a.mixes.size() > 1;
    std::vector<Table::Column> columns = {{Align::Right, 1, 6}};
    std::vector<Cell> heading = {"amount"};
    if (hasMixes) {
        columns.push_back({Align::Right, 2, 3});
        heading.emplace_back("mix");
    }
    columns.push_back({Align::Left, 2, 27});
    columns.push_back({Align::Left, 2, 0});
    for (const std::string& name : names) {
        heading.emplace_back(CutToColumns(Printable(name), kMostName));
    }
    Table table(columns);
    table.AddRow(heading);
    for (std::size_t index = 0; index < std::min(stretches.size(), kMostRows); ++index) {
        const Stretch& stretch = stretches[index];
        const CompareDifference& first = *stretch.first;
        const bool isRange = byOutcome && stretch.amounts > 1;
        std::vector<Cell> row = {AmountText(questions.a.dispenser, stretch)};
        if (hasMixes) {
            row.emplace_back(MixText(first));
        }
        row.emplace_back(SideText(first.textA, isRange), RowOf(first.a.outcome).terminalStyle);
        row.emplace_back(SideText(first.textB, isRange), RowOf(first.b.outcome).terminalStyle);
        table.AddRow(row);
    }
    if (table.Width() > OutputWidth()) {
        table.Narrow();
    }
    const std::size_t rest = stretches.size() - std::min(stretches.size(), kMostRows);
    return "\n" + table.Text(painter) +
           (rest == 0 ? ""
                      : " and " + std::to_string(rest) + " more rows; --json has every amount\n");
}

}  // namespace

std::string CompareText(const CompareQuestions& questions,
                        const CompareAnswers& answers,
                        const std::array<std::string, 2>& names,
                        const Painter& painter) {
    std::string text = Headline(questions, answers, painter);
    if (!answers.differences.empty()) {
        text += TableText(questions, answers, names, painter);
    }
    if (!answers.isComplete) {
        const Dispenser& dispenser = questions.a.dispenser;
        text += "interrupted at " +
                ReadableText(AskedMoney(dispenser, questions.a.Amount(answers.amountCount)),
                             AmountDecimals(dispenser)) +
                " " + dispenser.currency + ", " + std::to_string(answers.amountCount) + " of " +
                std::to_string(questions.a.AmountCount()) + " amounts\n";
    }
    return text;
}

}  // namespace qxmix
