#include "JournalText.h"

#include "BadLinesText.h"
#include "dispenser/NotesText.h"
#include "dispenser/ReadableMoney.h"
#include "terminal/Table.h"
#include "text/TextList.h"

namespace qxmix {

namespace {

using Align = Table::Align;

std::string LinesText(std::uint64_t lines) {
    return std::to_string(lines) + (lines == 1 ? " line" : " lines");
}

std::string DifferencesText(const Journal& journal,
                            const Dispenser& dispenser,
                            const JournalAnswers& answers,
                            const Painter& painter) {
    Table table({{Align::Right, 1, 5},
                 {Align::Left, 1, 0},
                 {Align::Right, 1, 6},
                 {Align::Right, 1, 3},
                 {Align::Left, 2, 16},
                 {Align::Left, 2, 0}});
    table.AddRow({"line", "time", "amount", "mix", "journal", "now"});
    std::size_t shown = 0;
    for (const JournalDifference& difference : answers.differences) {
        if (shown++ == kMostDifferencesShown) {
            break;
        }
        const JournalEntry& entry = difference.entry;
        const std::string other = entry.currency == dispenser.currency ? "" : entry.currency;
        table.AddRow(
            {std::to_string(entry.line), Printable(entry.time),
             ReadableText(AskedMoney(dispenser, entry.amount), AmountDecimals(dispenser)) + other,
             std::to_string(entry.mix), Cell(RecordedText(journal, dispenser, entry)),
             Cell(NowText(journal, dispenser, difference.now),
                  RowOf(difference.now.outcome).terminalStyle)});
    }
    return table.Text(painter);
}

}  // namespace

std::string JournalHeadline(const JournalAnswers& answers) {
    const std::size_t different = answers.differences.size();
    if (different == 0) {
        return LinesText(answers.lines) + (answers.lines == 1 ? " is" : " are") +
               " answered as the journal says";
    }
    return std::to_string(different) + " of " + LinesText(answers.lines) +
           (different == 1 ? " is" : " are") + " answered otherwise than the journal says" +
           (answers.isStopped ? "; the rest was not asked" : "");
}

std::string ChangesText(const JournalAnswers& answers) {
    std::vector<std::string> parts;
    for (const JournalChangeRow& row : JournalChanges()) {
        if (answers.Count(row.change) > 0) {
            parts.push_back(std::to_string(answers.Count(row.change)) + " " + row.words);
        }
    }
    return Join(parts, "; ");
}

std::string
RecordedText(const Journal& journal, const Dispenser& dispenser, const JournalEntry& entry) {
    return entry.IsPaid() ? NotesText(dispenser, entry.items, journal.tellsCassettes)
                          : "nothing" + (entry.code.empty() ? "" : " " + Printable(entry.code));
}

std::string NowText(const Journal& journal, const Dispenser& dispenser, const JournalNow& now) {
    return now.IsPaid() ? NotesText(dispenser, now.items, journal.tellsCassettes)
                        : RowOf(now.outcome).words + (now.code.empty() ? "" : " " + now.code);
}

std::string JournalText(const Journal& journal,
                        const Dispenser& dispenser,
                        const JournalAnswers& answers,
                        const Painter& painter) {
    std::string text = JournalHeadline(answers) + "\n";
    if (!answers.differences.empty()) {
        text += ChangesText(answers) + "\n";
    }
    text += BadLinesText(journal.badLines.size());
    if (!answers.differences.empty()) {
        text += "\n" + DifferencesText(journal, dispenser, answers, painter) +
                MoreText(answers.differences.size());
    }
    if (!answers.isComplete) {
        text += "interrupted at line " + std::to_string(answers.interruptedAt) + ", " +
                LinesText(answers.lines) + " asked\n";
    }
    return text;
}

}  // namespace qxmix
