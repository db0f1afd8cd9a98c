#include "FirstFitDecision.h"

#include "FirstFitCycle.h"
#include "TwoUnitFit.h"

FirstFitDecision DecideFirstFit(const SearchUnits& units) noexcept {
    using Ending = FirstFitDecision::Ending;
    FirstFitDecision decision{Ending::Unknown, {}, {}};
    // What the loops meet first is the greedy combination.
    if (TakeGreedily(units, decision.found) == 0 && units.IsWithinLimit(decision.found)) {
        decision.ending = Ending::Found;
        return decision;
    }
    if (!NothingWrapsTwice<32>(units)) {
        return decision;
    }
    if (units.n == 2) {
        const bool isFound = TwoUnitFit<32>(units).Find(decision.found, decision.refusal);
        decision.ending = isFound ? Ending::Found : Ending::Failed;
    } else {
        const bool isFound = FirstFitCycle<32>(units).Find(decision.found, decision.refusal);
        decision.ending = isFound ? Ending::Found : Ending::Never;
    }
    return decision;
}
