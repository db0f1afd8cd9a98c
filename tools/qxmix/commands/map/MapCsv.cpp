#include "MapForms.h"

#include "terminal/Terminal.h"

namespace qxmix {

namespace {

std::string CellText(const MapQuestions& questions,
                     std::uint32_t amount,
                     std::uint16_t mix,
                     const MapCell& cell) {
    std::string line =
        std::to_string(amount) + "," + std::to_string(mix) + "," + RowOf(cell.outcome).name + ",";
    if (!cell.IsAnswered()) {
        return line + ",,," + std::string(kMaxCashUnits, ',');
    }
    line += AnswerOf(questions.dispenser, amount, mix, cell)
                .paid.Text(AmountDecimals(questions.dispenser)) +
            "," + std::to_string(cell.remainder) + "," + std::to_string(cell.returned) + ",";
    // A code of five letters and digits is the only one there is; another must not split the line.
    const std::string code = Printable(cell.code);
    line += code.find_first_of(",\"") == std::string::npos ? code : "?";
    for (const std::uint32_t items : cell.values) {
        line += "," + std::to_string(items);
    }
    return line;
}

/// The lines of a map.
///
/// @param end  of each.
std::string LinesText(const MapReport& report, const std::string& end) {
    const MapQuestions& questions = report.questions;
    const MapAnswers& answers = report.answers;
    std::string lines;
    std::vector<MapRowReader> readers(answers.rows.begin(), answers.rows.end());
    for (std::uint64_t place = 0; place < answers.amountCount; ++place) {
        for (std::size_t row = 0; row < readers.size(); ++row) {
            lines += CellText(questions, questions.Amount(place), questions.mixes[row],
                              readers[row].Next()) +
                     end;
        }
    }
    return lines;
}

}  // namespace

std::string MapCsv(const MapReports& reports) {
    const bool areSeveral = reports.AreSeveral();
    std::string csv = "amount,mix,outcome,paid,remainder,returned,registry,v0,v1,v2,v3,v4,v5";
    csv += areSeveral ? ",currency\n" : "\n";
    for (const MapReport& report : reports.maps) {
        csv += LinesText(report, areSeveral ? "," + report.Currency() + "\n" : "\n");
    }
    return csv;
}

}  // namespace qxmix
