#include <algorithm>

#include "RawBytes.h"
#include "Reference.h"
#include "UnitOrdering.h"
#include "UnitTable.h"

namespace reference {
namespace {

constexpr unsigned kUnitBytes = 1052;
constexpr unsigned kCassetteBytes = 172;

void WriteUnit(const LogicalUnit& unit, std::uint8_t* at) {
    std::fill_n(at, kUnitBytes, std::uint8_t{0});
    WriteU16(at, unit.number);
    WriteU16(at + 2, unit.type);
    std::copy(unit.currency.begin(), unit.currency.end(), at + 4);
    WriteU32(at + 8, unit.value);
    WriteU32(at + 12, unit.count);
    WriteU16(at + 16, unit.status);
    WriteU16(at + 18, static_cast<std::uint16_t>(unit.cassettes.size()));
    at += 20;
    for (const Cassette& cassette : unit.cassettes) {
        std::copy(cassette.bytes.begin(), cassette.bytes.end(), at);
        at += kCassetteBytes;
    }
}

void WriteTable(const UnitTable& units, std::uint8_t* table) {
    WriteU16(table, static_cast<std::uint16_t>(units.size()));
    table += 4;
    for (const LogicalUnit& unit : units) {
        WriteUnit(unit, table);
        table += kUnitBytes;
    }
}

}  // namespace

void BuildTableImage(const std::uint8_t* request, std::uint8_t* table) {
    std::fill_n(table, kTableBytes, std::uint8_t{0});
    WriteTable(BuildTable(request), table);
}

void OrderedTableImage(Ordering ordering,
                       const Object& object,
                       const std::uint8_t* request,
                       std::uint8_t* table) {
    WriteTable(OrderedUnits(ordering, object, request), table);
}

}  // namespace reference
