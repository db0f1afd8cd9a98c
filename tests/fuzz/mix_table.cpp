// A mix table, as JSON or as CSV: refused in one line, or read the same again when it is written
// out in both forms.
#include "Expect.h"
#include "errors/Errors.h"
#include "tables/MixTableFile.h"

namespace {

using fuzz::Expect;

void ExpectSame(const qxmix::MixTable& table, const qxmix::MixTable& again, bool hasName) {
    if (hasName) {
        Expect(table.number == again.number && table.name == again.name, "the same table");
    }
    Expect(table.header == again.header, "the same notes");
    Expect(table.rows.size() == again.rows.size(), "as many rows");
    for (std::size_t row = 0; row < table.rows.size(); ++row) {
        Expect(table.rows[row].amount == again.rows[row].amount &&
                   table.rows[row].counts == again.rows[row].counts,
               "the same row");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    qxmix::MixTable table;
    try {
        table = qxmix::ReadMixTable({"f", std::string(bytes, bytes + size)});
    } catch (const qxmix::InputError&) {
        return 0;  // the only way to be refused; everything else ends the process
    }
    ExpectSame(table, qxmix::ReadMixTable({"f", qxmix::MixTableJson(table)}), true);
    ExpectSame(table, qxmix::ReadMixTable({"f", qxmix::MixTableCsv(table)}), false);
    return 0;
}
