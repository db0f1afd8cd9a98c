#include "CashUnitGroup.h"

#include "Cassettes.h"
#include "StatusRank.h"

#include <cstring>

namespace {

constexpr CodeSet kCountedStatuses = StatusRange(CashUnitStatus::Ok, CashUnitStatus::Low);

bool HoldsSameItem(const CashUnitGroup& group, const PhysicalCashUnit& cassette) noexcept {
    return group.type == cassette.usType && group.value == cassette.ulValues &&
           std::memcmp(&group.currency, &cassette.cCurrencyID, sizeof(CurrencyId)) == 0;
}

void Begin(CashUnitGroup& group, unsigned number, const PhysicalCashUnit& cassette) noexcept {
    group.number = static_cast<std::uint16_t>(number);
    group.type = cassette.usType;
    group.currency = cassette.cCurrencyID;
    group.status = cassette.usStatus;
    group.value = cassette.ulValues;
    // On purpose: the first cassette of a unit counts whatever its status is.
    group.count = cassette.ulCount;
    group.cassetteCount = 1;
    group.cassettes[0] = &cassette;
}

void Join(CashUnitGroup& group, const PhysicalCashUnit& cassette) noexcept {
    if (Contains(kCountedStatuses, cassette.usStatus)) {
        group.count += cassette.ulCount;
    }
    group.status = KeptStatus(group.status, cassette.usStatus);
    group.cassettes[group.cassetteCount] = &cassette;
    ++group.cassetteCount;
}

}  // namespace

unsigned GroupCassettes(const MixRequest& request, CashUnitGroup* groups) noexcept {
    const unsigned cassettes = CassetteCount(request);
    unsigned count = 0;
    for (unsigned index = 0; index < cassettes; ++index) {
        const PhysicalCashUnit& cassette = request.aPhysicalCUs[index];
        unsigned number = 0;
        while (number < count && !HoldsSameItem(groups[number], cassette)) {
            ++number;
        }
        if (number < count) {
            Join(groups[number], cassette);
        } else {
            Begin(groups[number], number, cassette);
            ++count;
        }
    }
    return count;
}

void WriteUnit(const CashUnitGroup& group, LogicalCashUnit& unit) noexcept {
    unit.usNumber = group.number;
    unit.usType = group.type;
    unit.cCurrencyID = group.currency;
    unit.acPad7[0] = 0;
    unit.ulValues = group.value;
    unit.ulCount = group.count;
    unit.usStatus = group.status;
    unit.usNumPhysicalCUs = static_cast<std::uint16_t>(group.cassetteCount);
    for (unsigned index = 0; index < group.cassetteCount; ++index) {
        unit.aPhysicalCUs[index] = *group.cassettes[index];
    }
    const unsigned unused = kMaxCashUnits - group.cassetteCount;
    std::memset(unit.aPhysicalCUs + group.cassetteCount, 0, unused * sizeof(PhysicalCashUnit));
}
