#include "CMixAlgorithm.h"
#include "CashUnitCodes.h"
#include "Failure.h"
#include "ItemTotals.h"
#include "ResultCodes.h"
#include "Trace.h"

std::int32_t CMixAlgorithm::CheckMaximumDispense(const MixRequest& request,
                                                 const LcuTable& table,
                                                 const LcuNotes& notes) noexcept {
    const unsigned count = table.usCount;
    ItemTotals totals;
    for (unsigned index = 0; index < count; ++index) {
        totals.Add(Contains(kCoinTypes, table.aLCUs[index].usType), notes.aulNotes[index]);
    }
    const std::uint32_t limit = request.usMaxDispenseItems;
    if (totals.AreWithin(limit)) {
        return kSuccess;
    }
    const std::int32_t result =
        Fail(totals.notes > limit ? Failure::TooManyNotes : Failure::TooManyCoins);
    TraceNumbers("CheckMaximumDispense() Calculated Notes are", count,
                 [&notes](unsigned index) { return notes.aulNotes[index]; });
    return result;
}
