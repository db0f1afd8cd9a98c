#include "CMixAlgorithm.h"
#include "CountDown.h"
#include "FirstFitDecision.h"
#include "Refusal.h"
#include "SingleUnit.h"

namespace {

/// Takes the first combination within the limit; the unit that holds the most money comes first.
struct FirstFitRule : CountDownRule {
    bool isFound = false;
    Counts found{};
    Refusal refusal;

    explicit FirstFitRule(const SearchUnits& searched) noexcept : CountDownRule(searched) {}

    // On purpose: no loop is left out and none ends at 0. After 0 a counter goes on at 2^32 - 1,
    // and products and rests wrap with it. With three and more units only a combination ends the
    // search: it can pay far too much, and it can run for ever. A host has to set a deadline.
    static bool SkipsLoop(std::uint32_t) noexcept { return false; }
    static bool IsLowest(std::uint32_t) noexcept {
        asm volatile("");  // the compiler might otherwise assume that the loop ends
        return false;
    }

    Verdict Visit(const Counts& combination, std::uint32_t unpaid) noexcept {
        return unpaid == 0 ? Take(combination) : Verdict::GoOn;
    }

    Verdict Take(const Counts& combination) noexcept {
        if (!units.IsWithinLimit(combination)) {
            // On purpose no end of the search, with two units either.
            refusal.Remember(combination);
            return Verdict::GoOn;
        }
        found = combination;
        isFound = true;
        return Verdict::EndSearch;
    }
};

/// The fallback: the first combination below the amount, normally the greedy one.
struct FirstShortRule : FirstFitRule {
    using FirstFitRule::FirstFitRule;

    Verdict Visit(const Counts& combination, std::uint32_t unpaid) noexcept {
        const std::uint32_t paid = units.amount - unpaid;
        return paid < units.amount ? Take(combination) : Verdict::GoOn;
    }
};

/// What the loops come to, told without them wherever that is possible.
///
/// @return never, where neither the loops end nor it can be told that they do not.
FirstFitDecision Search(const SearchUnits& units) noexcept {
    FirstFitDecision decision = DecideFirstFit(units);
    if (decision.ending != FirstFitDecision::Ending::Unknown) {
        return decision;
    }
    FirstShortRule search(units);
    CountDown<FirstFitRule>(search);
    // On purpose for two units alone: with more, only a combination ends the loops above, so that
    // there is one by now.
    if (!search.isFound && units.allowsPartial) {
        CountDown(search);
    }
    decision.ending =
        search.isFound ? FirstFitDecision::Ending::Found : FirstFitDecision::Ending::Failed;
    decision.found = search.found;
    decision.refusal = search.refusal;
    return decision;
}

/// What the loops do that never end. An answer that never came must never come: a host may take
/// any other end for one.
[[noreturn]] void SpinForEver() noexcept {
    for (;;) {
        asm volatile("");  // the compiler might otherwise assume that the loop ends
    }
}

}  // namespace

std::int32_t CMixAlgorithm::CalcFirstFitEmptying(const MixRequest& request,
                                                 const LcuTable& table,
                                                 LcuNotes& notes) noexcept {
    if (table.aLCUs[0].ulValues == 0) {
        return kNotDispensable;  // nothing recorded
    }
    if (!HasSearchableSize(table)) {
        return Fail(Failure::TooManyUnits);
    }
    const SearchUnits units(request, table);
    if (units.HaveZeroValue()) {
        return Fail(Failure::NotDispensable);
    }
    if (units.n == 1) {
        return PayFromSingleUnit(units, notes);
    }
    const FirstFitDecision decision = Search(units);
    if (decision.ending == FirstFitDecision::Ending::Failed) {
        return Fail(Failure::NotDispensable);
    }
    decision.refusal.Record(request, table, units);
    if (decision.ending == FirstFitDecision::Ending::Never) {
        // A host that gives up the calling thread finds in the registry what the loops would have
        // left there.
        SpinForEver();
    }
    StoreNotes(units, decision.found, notes);
    return kSuccess;
}
