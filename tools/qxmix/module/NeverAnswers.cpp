#include "NeverAnswers.h"

#include "FirstFitDecision.h"
#include "FitAmount.h"
#include "MixPlans.h"
#include "NoHost.h"
#include "Numbers.h"
#include "mixes/MixTraits.h"

namespace qxmix {

namespace {

/// One object for all: each leaves a key of the registry open.
CMixAlgorithm& AlgorithmWith(std::uint32_t minimum) {
    static NoHost host;
    static CMixAlgorithm algorithm(&host);
    algorithm.ulCstMinimum4Mix6 = minimum;
    return algorithm;
}

/// The road of a request as far as its search, which is decided and not run.
CallEnding Decide(const MixRequest& request, std::uint32_t minimum, bool recordsCode) {
    if (!Traits(request.usMixNumber).isFirstFit) {
        return CallEnding::Ends;
    }
    MixRequest searched = request;
    if (searched.sExponent > 0) {
        searched.ulAmount = ScaleByPowerOfTen(searched.ulAmount, searched.sExponent);
    }
    LcuTable table;
    (AlgorithmWith(minimum).*FindMixPlan(request.usMixNumber)->order)(searched, table);
    constexpr unsigned kLeastUnits = 2;  // one alone needs no search
    if (table.usCount < kLeastUnits || !HasSearchableSize(table) || !FitAmount(searched, table)) {
        return CallEnding::Ends;
    }
    const SearchUnits units(searched, table);
    if (units.HaveZeroValue()) {
        return CallEnding::Ends;
    }
    const FirstFitDecision decision = DecideFirstFit(units);
    if (decision.ending != FirstFitDecision::Ending::Never) {
        return decision.ending == FirstFitDecision::Ending::Unknown ? CallEnding::Unknown
                                                                    : CallEnding::Ends;
    }
    if (recordsCode) {
        decision.refusal.Record(searched, table, units);
    }
    return CallEnding::Never;
}

}  // namespace

CallEnding DecideEnding(const MixRequest& request, std::uint32_t minimum) {
    return Decide(request, minimum, false);
}

bool NeverAnswers(const MixRequest& request, std::uint32_t minimum) {
    return DecideEnding(request, minimum) == CallEnding::Never;
}

void LeaveAsEndlessCall(const MixRequest& request, std::uint32_t minimum) {
    Decide(request, minimum, true);
}

}  // namespace qxmix
