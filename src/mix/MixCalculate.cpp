#include "CMixAlgorithm.h"
#include "Cassettes.h"
#include "Failure.h"
#include "FitAmount.h"
#include "MixPlans.h"
#include "Numbers.h"
#include "ResultCodes.h"
#include "Trace.h"

#include <cstring>

namespace {

/// Whether the amount does not reach the smallest note of a table that is not empty.
bool IsBelowSmallestNote(const MixPlan& plan,
                         const MixRequest& request,
                         const LcuTable& table) noexcept {
    if (plan.smallestNote == SmallestNote::NotAsked) {
        return false;
    }
    const unsigned smallest =
        plan.smallestNote == SmallestNote::FirstUnit ? 0U : table.usCount - 1U;
    return request.ulAmount < table.aLCUs[smallest].ulValues;
}

/// What of the amount the result does not pay.
///
/// On purpose in the request's own terms: slot k of the result is valued by cassette k of the
/// request, in whole currency units, even where the amount is counted in others.
std::uint32_t RemainderOf(const MixRequest& request, const MixResult& result) noexcept {
    const unsigned count = CassetteCount(request);
    std::uint32_t rest = request.ulAmount;
    for (unsigned index = 0; index < count; ++index) {
        rest -= result.aulNotes[index] * request.aPhysicalCUs[index].ulValues;
    }
    return rest;
}

void TraceOutcome(const MixRequest& request, const MixResult& result) noexcept {
    TraceNumbers("<MixCalculate> Notes is", CassetteCount(request),
                 [&result](unsigned index) { return result.aulNotes[index]; });
    Trace("<MixCalculate> CashBox is %d.", TraceNumber(request.ulRemainder));
}

}  // namespace

std::int32_t CMixAlgorithm::MixCalculate(MixRequest* const request,
                                         MixResult* const result) noexcept {
    std::memset(result, 0, sizeof(*result));

    const unsigned mixNumber = request->usMixNumber;
    const MixPlan* const plan = FindMixPlan(mixNumber);
    if (mixNumber < usFirstMixNumber || mixNumber > usLastMixNumber || plan == nullptr) {
        Trace("MixCalculate() : Invalid Mix Algorithm (%d).", TraceNumber(mixNumber));
        return Fail(Failure::InvalidMixNumber);
    }
    if (request->sExponent > 0) {
        request->ulAmount = ScaleByPowerOfTen(request->ulAmount, request->sExponent);
    }

    LcuTable table;
    (this->*plan->order)(*request, table);
    if (table.usCount == 0) {
        return Fail(Failure::NotDispensable);
    }
    if (IsBelowSmallestNote(*plan, *request, table)) {
        request->ulRemainder = request->ulAmount;
        return kSuccess;
    }
    if (!FitAmount(*request, table)) {
        return Fail(Failure::NotDispensable);
    }

    LcuNotes notes{};
    const std::int32_t searched = plan->search(*request, table, notes);
    if (searched != kSuccess) {
        return searched;
    }
    plan->spread(table, notes, *result);
    request->ulRemainder = RemainderOf(*request, *result);
    TraceOutcome(*request, *result);
    return kSuccess;
}
