#include "JournalForms.h"
#include "JournalText.h"
#include "sheets/CsvCell.h"

namespace qxmix {

namespace {

Json TextOrNull(const std::string& text) {
    return text.empty() ? Json() : Json(text);
}

Json ItemsJson(const Dispenser& dispenser, const CassetteItems& items) {
    Json json = Json::array();
    for (std::size_t index = 0; index < dispenser.cassettes.size(); ++index) {
        json.push_back(items[index]);
    }
    return json;
}

Json DifferenceJson(const Journal& journal,
                    const Dispenser& dispenser,
                    const JournalDifference& difference) {
    const JournalEntry& entry = difference.entry;
    const JournalNow& now = difference.now;
    const bool isKnown = now.IsAnswered();
    return {{"line", entry.line},
            {"time", TextOrNull(entry.time)},
            {"amount", entry.amount},
            {"currency", entry.currency},
            {"mix", entry.mix},
            {"change", NameOf(difference.change)},
            {"recorded",
             {{"notes", RecordedText(journal, dispenser, entry)},
              {"items", journal.tellsCassettes ? ItemsJson(dispenser, entry.items) : Json()},
              {"code", TextOrNull(entry.code)}}},
            {"now",
             {{"outcome", RowOf(now.outcome).name},
              {"notes", NowText(journal, dispenser, now)},
              {"items", isKnown ? ItemsJson(dispenser, now.items) : Json()},
              {"paid", isKnown ? Json(now.paid.Text(AmountDecimals(dispenser))) : Json()},
              {"returned", isKnown ? Json(now.returned) : Json()},
              {"code", TextOrNull(now.code)}}}};
}

}  // namespace

Json JournalJson(const Journal& journal,
                 const Dispenser& dispenser,
                 const JournalAnswers& answers) {
    Json result = {{"requests", answers.lines}, {"same", answers.Count(JournalChange::Same)}};
    for (const JournalChangeRow& row : JournalChanges()) {
        result[row.name] = answers.Count(row.change);
    }
    result["differences"] = Json::array();
    for (const JournalDifference& difference : answers.differences) {
        result["differences"].push_back(DifferenceJson(journal, dispenser, difference));
    }
    result["badLines"] = LineErrorsJson(journal.badLines);
    Json end = Json::array();
    for (const Cassette& cassette : answers.end.cassettes) {
        end.push_back(cassette.count);
    }
    result["end"] = end;
    return result;
}

std::string
JournalCsv(const Journal& journal, const Dispenser& dispenser, const JournalAnswers& answers) {
    std::string csv = "line,time,amount,currency,mix,change,journal,code,now,outcome,returned\n";
    for (const JournalDifference& difference : answers.differences) {
        const JournalEntry& entry = difference.entry;
        const JournalNow& now = difference.now;
        csv += std::to_string(entry.line) + "," + CsvCell(entry.time) + "," +
               std::to_string(entry.amount) + "," + entry.currency + "," +
               std::to_string(entry.mix) + "," + NameOf(difference.change) + "," +
               CsvCell(entry.IsPaid() ? RecordedText(journal, dispenser, entry) : "") + "," +
               CsvCell(entry.code) + "," +
               CsvCell(now.IsPaid() ? NowText(journal, dispenser, now) : "") + "," +
               RowOf(now.outcome).name + "," +
               (now.IsAnswered() ? std::to_string(now.returned) : "") + "\n";
    }
    return csv;
}

}  // namespace qxmix
