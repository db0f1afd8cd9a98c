#include "CMixAlgorithm.h"
#include "CashUnitGroup.h"
#include "RecordChecks.h"

#include <cstring>

void CMixAlgorithm::BuildLCUTable(const MixRequest& request, LcuTable& table) noexcept {
    CashUnitGroup groups[kMaxCashUnits];
    const unsigned count = GroupCassettes(request, groups);
    std::memset(&table, 0, sizeof(table));
    for (unsigned index = 0; index < count; ++index) {
        WriteUnit(groups[index], table.aLCUs[index]);
    }
    table.usCount = static_cast<std::uint16_t>(count);
}
