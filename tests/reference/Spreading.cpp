#include "Spreading.h"

namespace reference {
namespace {

/// Only OK and low cassettes give notes, and only into one of the six slots of the result.
bool Gives(const Cassette& cassette) {
    return (cassette.status == 0 || cassette.status == 3) && cassette.position < kMaxUnits;
}

void SpreadUnitInOrder(const LogicalUnit& unit,
                       std::uint32_t& notes,
                       Notes& result,
                       Journal& journal) {
    for (const Cassette& cassette : unit.cassettes) {
        journal.Step();
        if (!Gives(cassette)) {
            continue;
        }
        if (notes <= cassette.count) {
            result[cassette.position] = notes;
            notes = 0;
            return;
        }
        result[cassette.position] = cassette.count;
        notes -= cassette.count;
    }
}

void DealUnit(const LogicalUnit& unit, std::uint32_t notes, Notes& result, Journal& journal) {
    std::uint32_t placed = 0;
    std::size_t turnsWithoutNote = 0;
    std::size_t j = 0;
    while (placed < notes && turnsWithoutNote < unit.cassettes.size()) {
        journal.Step();
        const Cassette& cassette = unit.cassettes[j];
        if (Gives(cassette) && result[cassette.position] < cassette.count) {
            result[cassette.position] += 1;
            placed += 1;
            turnsWithoutNote = 0;
        } else {
            turnsWithoutNote += 1;
        }
        j = (j + 1) % unit.cassettes.size();
    }
}

}  // namespace

void SpreadInOrder(const UnitTable& table, Notes& notes, Notes& result, Journal& journal) {
    for (std::size_t i = 0; i < table.size(); ++i) {
        if (notes[i] != 0) {
            SpreadUnitInOrder(table[i], notes[i], result, journal);
        }
    }
}

void SpreadRoundRobin(const UnitTable& table, const Notes& notes, Notes& result, Journal& journal) {
    for (std::size_t i = 0; i < table.size(); ++i) {
        DealUnit(table[i], notes[i], result, journal);
    }
}

}  // namespace reference
