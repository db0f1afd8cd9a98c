#include "SpreadLcuNotes.h"

#include "CashUnitCodes.h"

namespace {

constexpr CodeSet kGivingStatuses = SetOf(CashUnitStatus::Ok, CashUnitStatus::Low);

/// On purpose: full and high cassettes, though they count as available, give nothing.
bool GivesItems(const PhysicalCashUnit& cassette) noexcept {
    return Contains(kGivingStatuses, cassette.usStatus) && cassette.usPosition < kMaxCashUnits;
}

void EmptyInOrder(const LogicalCashUnit& unit, std::uint32_t items, MixResult& result) noexcept {
    const unsigned cassettes = unit.usNumPhysicalCUs;
    for (unsigned index = 0; index < cassettes && items != 0; ++index) {
        const PhysicalCashUnit& cassette = unit.aPhysicalCUs[index];
        if (GivesItems(cassette)) {
            const std::uint32_t held = cassette.ulCount;
            const std::uint32_t given = items < held ? items : held;
            // On purpose assigned: of two cassettes with one position the later one counts.
            result.aulNotes[cassette.usPosition] = given;
            items -= given;
        }
    }
}

bool GiveOne(const PhysicalCashUnit& cassette, MixResult& result) noexcept {
    u32le& given = result.aulNotes[cassette.usPosition];
    if (given >= cassette.ulCount) {
        return false;
    }
    given = given + 1;
    return true;
}

void DealInTurn(const LogicalCashUnit& unit, std::uint32_t items, MixResult& result) noexcept {
    const unsigned cassettes = unit.usNumPhysicalCUs;
    std::uint32_t before{};
    do {
        before = items;
        for (unsigned index = 0; index < cassettes && items != 0; ++index) {
            const PhysicalCashUnit& cassette = unit.aPhysicalCUs[index];
            if (GivesItems(cassette) && GiveOne(cassette, result)) {
                --items;
            }
        }
    } while (items != before);  // until a whole turn gave nothing
}

}  // namespace

void SpreadInOrder(const LcuTable& table, const LcuNotes& notes, MixResult& result) noexcept {
    const unsigned count = table.usCount;
    for (unsigned index = 0; index < count; ++index) {
        EmptyInOrder(table.aLCUs[index], notes.aulNotes[index], result);
    }
}

void SpreadRoundRobin(const LcuTable& table, const LcuNotes& notes, MixResult& result) noexcept {
    const unsigned count = table.usCount;
    for (unsigned index = 0; index < count; ++index) {
        DealInTurn(table.aLCUs[index], notes.aulNotes[index], result);
    }
}
