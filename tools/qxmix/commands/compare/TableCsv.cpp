#include "TableForms.h"

namespace qxmix {

namespace {

/// The columns of a side that does not pay are empty.
std::string CountColumns(const std::vector<Money>& notes, const NotesByWorth& side) {
    std::string columns;
    for (const Money& note : notes) {
        const auto found = side.find(note);
        columns += ",";
        columns += side.empty() ? "" : found == side.end() ? "0" : std::to_string(found->second);
    }
    return columns;
}

}  // namespace

std::string TableCsv(const TableComparison& comparison) {
    std::string text = "amount,change,lack,outcome";
    for (const char* const side : {",table_", ",mix_"}) {
        for (const Money& note : comparison.notes) {
            text += side + note.Text();
        }
    }
    text += "\n";
    for (const TableDifference& one : comparison.differences) {
        text += std::to_string(one.amount) + "," + NameOf(one.change) + "," + NameOf(one.lack) +
                "," + RowOf(one.outcome).name + CountColumns(comparison.notes, one.table) +
                CountColumns(comparison.notes, one.mix) + "\n";
    }
    return text;
}

}  // namespace qxmix
