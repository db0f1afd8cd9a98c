#include "MixTableFile.h"

#include "json/Json.h"

namespace qxmix {

std::string MixTableJson(const MixTable& table) {
    // A line for each row, so that changes of a table show as lines.
    std::string text = "{\"mixNumber\":" + std::to_string(table.number) +
                       ",\"name\":" + Json(table.name).dump() +
                       ",\"mixHeader\":" + Json(table.header).dump() + ",\"mixRows\":[";
    const char* before = "\n";
    for (const MixTable::Row& row : table.rows) {
        text += before + ("{\"amount\":" + std::to_string(row.amount)) +
                ",\"mixture\":" + Json(row.counts).dump() + "}";
        before = ",\n";
    }
    return text + "]}\n";
}

std::string MixTableCsv(const MixTable& table) {
    std::string text = "amount";
    for (const std::uint32_t note : table.header) {
        text += "," + std::to_string(note);
    }
    for (const MixTable::Row& row : table.rows) {
        text += "\n" + std::to_string(row.amount);
        for (const std::uint16_t count : row.counts) {
            text += "," + std::to_string(count);
        }
    }
    return text + "\n";
}

}  // namespace qxmix
