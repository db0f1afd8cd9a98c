#include "TableForms.h"

#include "dispenser/DispenserJson.h"
#include "json/Json.h"
#include "text/Duration.h"

namespace qxmix {

namespace {

/// How many of each note; null: the side does not pay.
Json CountsJson(const std::vector<Money>& notes, const NotesByWorth& side) {
    if (side.empty()) {
        return nullptr;
    }
    Json counts = Json::array();
    for (const Money& note : notes) {
        const auto found = side.find(note);
        counts.push_back(found == side.end() ? 0 : found->second);
    }
    return counts;
}

}  // namespace

Json TableInputJson(const TableQuestions& questions) {
    const MapQuestions& asked = questions.asked;
    return {{"dispenser", DispenserJson(asked.dispenser)},
            {"mix", asked.mixes.front()},
            {"from", asked.from},
            {"to", asked.to},
            {"step", asked.step},
            {"deadline", DurationText(asked.deadline)},
            {"table",
             {{"mixNumber", questions.table.number},
              {"name", questions.table.name},
              {"rows", questions.table.rows.size()}}}};
}

Json TableResultJson(const TableComparison& comparison) {
    Json result = Json::object();
    for (const TableChange change : {TableChange::Same, TableChange::NotThere, TableChange::NotPaid,
                                     TableChange::Other, TableChange::Missing}) {
        result[NameOf(change)] = comparison.Count(change);
    }
    result["danger"] = comparison.dangers;
    result["notes"] = Json::array();
    for (const Money& note : comparison.notes) {
        result["notes"].push_back(note.Text());
    }
    result["differences"] = Json::array();
    for (const TableDifference& one : comparison.differences) {
        result["differences"].push_back(
            {{"amount", one.amount},
             {"change", NameOf(one.change)},
             {"lack", one.lack == Lack::None ? Json(nullptr) : Json(NameOf(one.lack))},
             {"table", CountsJson(comparison.notes, one.table)},
             {"outcome", RowOf(one.outcome).name},
             {"mix", CountsJson(comparison.notes, one.mix)}});
    }
    return result;
}

}  // namespace qxmix
