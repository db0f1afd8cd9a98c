#include "NeverAnswers.h"

#include "FirstFitDecision.h"
#include "FitAmount.h"
#include "MixPlans.h"
#include "NoHost.h"
#include "Numbers.h"

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
bool IsEndless(const MixRequest& request, std::uint32_t minimum, bool recordsCode) {
    const MixPlan* const plan = FindMixPlan(request.usMixNumber);
    if (plan == nullptr || plan->search != &Mix::CalcFirstFitEmptying) {
        return false;  // the other searches always end
    }
    MixRequest searched = request;
    if (searched.sExponent > 0) {
        searched.ulAmount = ScaleByPowerOfTen(searched.ulAmount, searched.sExponent);
    }
    LcuTable table;
    (AlgorithmWith(minimum).*plan->order)(searched, table);
    constexpr unsigned kLeastUnits = 3;  // with fewer the loops end by themselves
    if (table.usCount < kLeastUnits || !HasSearchableSize(table) || !FitAmount(searched, table)) {
        return false;
    }
    const SearchUnits units(searched, table);
    if (units.HaveZeroValue()) {
        return false;
    }
    const FirstFitDecision decision = DecideFirstFit(units);
    if (decision.ending != FirstFitDecision::Ending::Never) {
        return false;
    }
    if (recordsCode) {
        decision.refusal.Record(searched, table, units);
    }
    return true;
}

}  // namespace

bool NeverAnswers(const MixRequest& request, std::uint32_t minimum) {
    return IsEndless(request, minimum, false);
}

void LeaveAsEndlessCall(const MixRequest& request, std::uint32_t minimum) {
    IsEndless(request, minimum, true);
}

}  // namespace qxmix
