#include "FitAmount.h"

#include "Numbers.h"

#include <cfloat>

// The total below decides borderline amounts by its rounding: each step must round to single
// precision on every processor.
static_assert(FLT_EVAL_METHOD == 0);

namespace {

float TotalHeld(const LcuTable& table) noexcept {
    const unsigned count = table.usCount;
    float total = 0.0F;
    for (unsigned index = 0; index < count; ++index) {
        const LogicalCashUnit& unit = table.aLCUs[index];
        const float product = SingleOf(unit.ulCount) * SingleOf(unit.ulValues);
        total += product;
    }
    return total;
}

}  // namespace

bool FitAmount(MixRequest& request, const LcuTable& table) noexcept {
    const float total = TotalHeld(table);
    if (!(total < SingleOf(request.ulAmount))) {
        return true;
    }
    if (request.bAllowPartial != 1) {
        return false;
    }
    request.ulAmount = TruncateToU32(static_cast<double>(total));
    request.ulRemainder = 0;
    return true;
}
