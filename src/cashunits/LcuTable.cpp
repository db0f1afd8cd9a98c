#include "CMixAlgorithm.h"
#include "Cassettes.h"
#include "RecordChecks.h"
#include "StatusRank.h"

#include <cstring>

namespace {

constexpr CodeSet kCountedStatuses = StatusRange(CashUnitStatus::Ok, CashUnitStatus::Low);

bool HoldsSameItem(const LogicalCashUnit& unit, const PhysicalCashUnit& cassette) noexcept {
    return unit.usType == cassette.usType && unit.ulValues == cassette.ulValues &&
           std::memcmp(&unit.cCurrencyID, &cassette.cCurrencyID, sizeof(CurrencyId)) == 0;
}

LogicalCashUnit* FindUnit(LcuTable& table, const PhysicalCashUnit& cassette) noexcept {
    const unsigned count = table.usCount;
    for (unsigned index = 0; index < count; ++index) {
        if (HoldsSameItem(table.aLCUs[index], cassette)) {
            return &table.aLCUs[index];
        }
    }
    return nullptr;
}

void AppendUnit(LcuTable& table, const PhysicalCashUnit& cassette) noexcept {
    const std::uint16_t number = table.usCount;
    LogicalCashUnit& unit = table.aLCUs[number];
    unit.usNumber = number;
    unit.usType = cassette.usType;
    unit.cCurrencyID = cassette.cCurrencyID;
    unit.ulValues = cassette.ulValues;
    // On purpose: the first cassette of a unit counts whatever its status is.
    unit.ulCount = cassette.ulCount;
    unit.usStatus = cassette.usStatus;
    unit.usNumPhysicalCUs = 1;
    unit.aPhysicalCUs[0] = cassette;
    table.usCount = static_cast<std::uint16_t>(number + 1);
}

void JoinUnit(LogicalCashUnit& unit, const PhysicalCashUnit& cassette) noexcept {
    if (Contains(kCountedStatuses, cassette.usStatus)) {
        unit.ulCount = unit.ulCount + cassette.ulCount;
    }
    unit.usStatus = KeptStatus(unit.usStatus, cassette.usStatus);
    const std::uint16_t place = unit.usNumPhysicalCUs;
    unit.aPhysicalCUs[place] = cassette;
    unit.usNumPhysicalCUs = static_cast<std::uint16_t>(place + 1);
}

}  // namespace

void CMixAlgorithm::BuildLCUTable(const MixRequest& request, LcuTable& table) noexcept {
    std::memset(&table, 0, sizeof(table));
    const unsigned count = CassetteCount(request);
    for (unsigned index = 0; index < count; ++index) {
        const PhysicalCashUnit& cassette = request.aPhysicalCUs[index];
        LogicalCashUnit* const unit = FindUnit(table, cassette);
        if (unit != nullptr) {
            JoinUnit(*unit, cassette);
        } else {
            AppendUnit(table, cassette);
        }
    }
}
