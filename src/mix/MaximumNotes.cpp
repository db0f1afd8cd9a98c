#include "CMixAlgorithm.h"
#include "CountDown.h"
#include "Failure.h"
#include "LimitBound.h"

namespace {

/// Takes the first exact combination within the limit; with the smallest note first, that is the
/// one with the most items that the limit lets through.
struct FirstWithinLimitRule : CountDownRule, WalkRule {
    const LimitBound& bound;
    bool isFound = false;
    Counts found{};

    FirstWithinLimitRule(const SearchUnits& searched, const LimitBound& limitBound) noexcept
        : CountDownRule(searched), bound(limitBound) {}

    // On purpose: with two units the loop does not start at the limit. It tells only for a count
    // that is negative as a signed number: with more units the limit has lowered it by then.
    std::uint32_t StartCount(std::uint32_t most) const noexcept {
        return units.n == 2 ? most : std::min(most, units.limit);
    }

    void Narrow(unsigned level,
                const Counts& combination,
                std::uint32_t rest,
                CountRange& range) const noexcept {
        bound.Narrow(level, combination, rest, range);
    }

    Verdict Visit(const Counts& combination, std::uint32_t unpaid) noexcept {
        return unpaid == 0 ? Visit(combination) : Verdict::GoOn;
    }

    Verdict Visit(const Counts& combination) noexcept {
        if (!units.IsWithinLimit(combination)) {
            return Verdict::GoOn;
        }
        found = combination;
        isFound = true;
        return Verdict::EndSearch;
    }
};

/// On purpose: this search holds all items together to the limit, notes and coins alike. What
/// passes it is within the limit of each kind too, so none of its candidates is ever refused with a
/// code.
SearchUnits CountingAllTogether(SearchUnits units) noexcept {
    units.areCoins = {};
    return units;
}

bool FindWithinLimit(const SearchUnits& units, Counts& combination) noexcept {
    const LimitBound bound(units, 0);
    FirstWithinLimitRule search(units, bound);
    if (units.ReachSignBit()) {
        CountDown(search);
    } else {
        ExactWalk(units).Run<Direction::Downwards>(search);
    }
    if (search.isFound) {
        combination = search.found;
    }
    return search.isFound;
}

/// Whether the combination that takes as much as fits of each unit is the answer already: it is the
/// first that the search would meet. A single unit is held to the limit only at the end.
bool IsAnswer(const SearchUnits& units, const Counts& combination, std::uint32_t unpaid) noexcept {
    return unpaid == 0 &&
           (units.n == 1 || (!units.ReachSignBit() && units.IsWithinLimit(combination)));
}

}  // namespace

std::int32_t CMixAlgorithm::CalcMaximumNotes(const MixRequest& request,
                                             const LcuTable& table,
                                             LcuNotes& notes) noexcept {
    if (!HasSearchableSize(table)) {
        return Fail(Failure::TooManyUnits);
    }
    const SearchUnits units = CountingAllTogether(SearchUnits(request, table));
    if (units.HaveZeroValue()) {
        return Fail(Failure::NotDispensable);
    }
    Counts combination{};
    const std::uint32_t unpaid = TakeGreedily(units, combination);
    const bool isExact = IsAnswer(units, combination, unpaid) ||
                         (units.n > 1 && FindWithinLimit(units, combination));
    if (!isExact && !units.allowsPartial) {
        return Fail(Failure::NotDispensable);
    }
    StoreNotes(units, combination, notes);
    return CheckMaximumDispense(request, table, notes);
}
