#include "CompareForms.h"

namespace qxmix {

namespace {

/// The columns of one side; numbers that nobody knows are empty.
std::string SideColumns(std::uint16_t mix, const MapCell& cell) {
    std::string columns = "," + std::to_string(mix) + "," + RowOf(cell.outcome).name;
    for (const std::uint32_t items : cell.values) {
        columns += "," + (cell.IsAnswered() ? std::to_string(items) : "");
    }
    return columns;
}

}  // namespace

std::string CompareCsv(const CompareAnswers& answers) {
    std::string text = "amount,change,a_mix,a_outcome,a_v0,a_v1,a_v2,a_v3,a_v4,a_v5,"
                       "b_mix,b_outcome,b_v0,b_v1,b_v2,b_v3,b_v4,b_v5\n";
    for (const CompareDifference& one : answers.differences) {
        text += std::to_string(one.amount) + "," + NameOf(one.change) +
                SideColumns(one.mixA, one.a) + SideColumns(one.mixB, one.b) + "\n";
    }
    return text;
}

}  // namespace qxmix
