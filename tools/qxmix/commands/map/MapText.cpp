#include "MapForms.h"

#include "dispenser/ReadableMoney.h"
#include "terminal/WrappedText.h"
#include "text/TextList.h"

#include <algorithm>

namespace qxmix {

namespace {

constexpr std::uint64_t kMostColumns = 60;
constexpr std::size_t kGroup = 10;
constexpr std::size_t kLeftOfCells = 6;

std::string AmountText(const MapQuestions& questions, std::uint64_t place) {
    const Dispenser& dispenser = questions.dispenser;
    return ReadableText(AskedMoney(dispenser, questions.Amount(place)), AmountDecimals(dispenser));
}

/// The amount above the first cell of each group of ten.
std::string
AmountsLine(const MapQuestions& questions, const MapAnswers& answers, std::uint64_t stretch) {
    std::string line;
    for (std::uint64_t place = 0; place < answers.amountCount; place += kGroup * stretch) {
        const auto group = static_cast<std::size_t>(place / (kGroup * stretch));
        const std::size_t column = kLeftOfCells + group * (kGroup + 1);
        // A long amount takes the room of the one behind it.
        if (group > 0 && line.size() >= column) {
            continue;
        }
        line.resize(column, ' ');
        line += AmountText(questions, place);
    }
    return line + "\n";
}

/// The worst outcome of each stretch.
std::vector<Outcome> WorstOf(const MapRow& row, std::uint64_t stretch) {
    std::vector<Outcome> worst;
    std::uint64_t place = 0;
    for (const MapRow::Run& run : row.Runs()) {
        const std::uint64_t behind = place + run.length;
        for (auto column = static_cast<std::size_t>(place / stretch); column * stretch < behind;
             ++column) {
            if (column == worst.size()) {
                worst.push_back(run.outcome);
            } else if (RowOf(run.outcome).badness > RowOf(worst[column]).badness) {
                worst[column] = run.outcome;
            }
        }
        place = behind;
    }
    return worst;
}

std::string RowLine(std::uint16_t mix, const std::vector<Outcome>& cells, const Painter& painter) {
    const std::string number = std::to_string(mix);
    std::string line = std::string(kLeftOfCells - 2 - number.size(), ' ') + number + " ";
    std::size_t place = 0;
    while (place < cells.size()) {
        // Cells of one colour are painted together: a map of colour codes would be hard to read.
        const std::size_t group = (place / kGroup + 1) * kGroup;
        std::size_t behind = place + 1;
        while (behind < std::min(group, cells.size()) && cells[behind] == cells[place]) {
            ++behind;
        }
        const OutcomeRow& outcome = RowOf(cells[place]);
        line += (place % kGroup == 0 ? " " : "") +
                painter.Paint(std::string(behind - place, outcome.letter), outcome.terminalStyle);
        place = behind;
    }
    return line + "\n";
}

std::string LegendText(const MapReport& report, std::uint64_t stretch, const Painter& painter) {
    const MapAnswers& answers = report.answers;
    std::vector<OutcomeRow> seen;
    for (const OutcomeRow& row : OutcomeTable()) {
        if (std::any_of(answers.rows.begin(), answers.rows.end(),
                        [&row](const MapRow& cells) { return cells.Count(row.outcome) > 0; })) {
            seen.push_back(row);
        }
    }
    std::sort(seen.begin(), seen.end(), [](const OutcomeRow& left, const OutcomeRow& right) {
        return left.badness < right.badness;
    });
    for (OutcomeRow& row : seen) {
        row.words = report.WordsOf(row);
    }
    std::vector<std::string> parts;
    for (const OutcomeRow& row : seen) {
        parts.push_back(std::string(1, row.letter) + " " + row.words);
    }
    std::string text = " " + WrappedText(parts, "  ", 1, 1) + "\n";
    // Painted afterwards: colour codes have no width.
    for (const OutcomeRow& row : seen) {
        const std::string plain = std::string(" ") + row.letter + " " + row.words;
        const std::size_t at = text.find(plain);
        text.replace(at + 1, 1, painter.Paint(std::string(1, row.letter), row.terminalStyle));
    }
    if (stretch > 1) {
        text += " each letter stands for " + std::to_string(stretch) +
                " amounts and is the worst of them\n";
    }
    return text;
}

std::string InterruptionText(const MapQuestions& questions, const MapAnswers& answers) {
    const std::uint64_t done = answers.amountCount;
    return answers.isComplete ? ""
                              : "interrupted at " + AmountText(questions, done) + " " +
                                    questions.dispenser.currency + ", " + std::to_string(done) +
                                    " of " + std::to_string(questions.AmountCount()) + " amounts\n";
}

std::string TextOf(const MapReport& report, const Painter& painter) {
    const MapQuestions& questions = report.questions;
    const MapAnswers& answers = report.answers;
    const std::size_t before = report.word.size() + 2;
    std::vector<std::string> parts;
    for (const std::string& part : Split(report.rest, ',')) {
        parts.push_back(part.substr(parts.empty() ? 0 : 1));
    }
    std::string text = painter.Paint(report.word, RowOf(report.colour).terminalStyle) + "  " +
                       WrappedText(parts, ", ", before, before) + "\n";
    for (const std::string& line : report.unpaid) {
        text += line + "\n";
    }
    const std::uint64_t amounts = answers.amountCount;
    const std::uint64_t stretch =
        std::max<std::uint64_t>((amounts + kMostColumns - 1) / kMostColumns, 1);
    text += "\n" + AmountsLine(questions, answers, stretch);
    for (std::size_t row = 0; row < answers.rows.size(); ++row) {
        text += RowLine(questions.mixes[row], WorstOf(answers.rows[row], stretch), painter);
    }
    return text + LegendText(report, stretch, painter) +
           FindingsText(report.differences, false, painter) + InterruptionText(questions, answers);
}

}  // namespace

std::string MapText(const MapReports& reports, const Painter& painter) {
    std::string text;
    for (const MapReport& report : reports.maps) {
        text += (text.empty() ? "" : "\n") + TextOf(report, painter);
    }
    for (const std::string& currency : reports.notAsked) {
        text += "nothing asked in " + currency + "\n";
    }
    return text;
}

}  // namespace qxmix
