#include "UnitTable.h"

#include <algorithm>

#include "RawBytes.h"
#include "Reference.h"

namespace reference {
namespace {

LogicalUnit* FindSameKind(UnitTable& table, const Cassette& cassette) {
    for (LogicalUnit& unit : table) {
        if (unit.type == cassette.type && unit.currency == cassette.currency &&
            unit.value == cassette.value) {
            return &unit;
        }
    }
    return nullptr;
}

void Create(UnitTable& table, const Cassette& cassette) {
    LogicalUnit unit;
    unit.number = static_cast<std::uint16_t>(table.size());
    unit.type = cassette.type;
    unit.currency = cassette.currency;
    unit.value = cassette.value;
    // On purpose: the first cassette's count stands whatever its status is.
    unit.count = cassette.count;
    unit.status = cassette.status;
    unit.cassettes.push_back(cassette);
    table.push_back(unit);
}

void Join(LogicalUnit& unit, const Cassette& cassette) {
    if (cassette.status <= 3) {
        unit.count += cassette.count;
    }
    if (TakesOver(unit.status, cassette.status)) {
        unit.status = cassette.status;
    }
    unit.cassettes.push_back(cassette);
}

}  // namespace

unsigned CassetteCount(const std::uint8_t* request) {
    const unsigned said = ReadU16(request + 20);
    return said > kMaxUnits ? kMaxUnits : said;
}

Cassette ReadCassette(const std::uint8_t* request, unsigned index) {
    const std::uint8_t* record = request + 24 + std::size_t{172} * index;
    Cassette cassette;
    cassette.position = ReadU16(record);
    cassette.type = ReadU16(record + 130);
    std::copy_n(record + 137, 3, cassette.currency.begin());
    cassette.value = ReadU32(record + 148);
    cassette.count = ReadU32(record + 152);
    cassette.status = ReadU16(record + 164);
    std::copy_n(record, 172, cassette.bytes.begin());
    return cassette;
}

UnitTable BuildTable(const std::uint8_t* request) {
    UnitTable table;
    for (unsigned index = 0; index < CassetteCount(request); ++index) {
        const Cassette cassette = ReadCassette(request, index);
        LogicalUnit* unit = FindSameKind(table, cassette);
        if (unit == nullptr) {
            Create(table, cassette);
        } else {
            Join(*unit, cassette);
        }
    }
    return table;
}

bool TakesOver(std::uint16_t groupStatus, std::uint16_t newStatus) {
    // Row: status of the group; column: status of the newcomer.
    // clang-format off
    constexpr int kTakes[7][7] = {
        // 0  1  2  3  4  5  6
        {  0, 0, 0, 0, 0, 0, 0 },  // 0 OK
        {  1, 0, 1, 0, 0, 0, 0 },  // 1 full
        {  1, 0, 0, 0, 0, 0, 0 },  // 2 high
        {  1, 1, 1, 0, 0, 0, 0 },  // 3 low
        {  1, 1, 1, 1, 0, 1, 0 },  // 4 empty
        {  1, 1, 1, 1, 0, 0, 0 },  // 5 inoperative
        {  1, 1, 1, 1, 1, 1, 0 },  // 6 missing
    };
    // clang-format on
    if (groupStatus >= 7 && groupStatus <= 9) {
        return true;
    }
    return groupStatus <= 6 && newStatus <= 6 && kTakes[groupStatus][newStatus] == 1;
}

}  // namespace reference
