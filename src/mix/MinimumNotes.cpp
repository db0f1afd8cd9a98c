#include "CMixAlgorithm.h"
#include "CountDown.h"
#include "ExactWalk.h"
#include "Failure.h"
#include "Numbers.h"

namespace {

/// Takes the first exact combination: the most items of the largest note, then of the next. No
/// other one is compared with it, and the limit is not asked before it is found.
struct FirstExactRule : CountDownRule, WalkRule {
    bool isFound = false;
    Counts found{};

    explicit FirstExactRule(const SearchUnits& searched) noexcept : CountDownRule(searched) {}

    // On purpose: here the counters are unsigned and only the need of the last unit is signed.
    static bool SkipsLoop(std::uint32_t) noexcept { return false; }
    static bool IsShort(std::uint32_t needed, std::uint32_t held) noexcept {
        return AsSigned(needed) > AsSigned(held);
    }

    Verdict Visit(const Counts& combination, std::uint32_t unpaid) noexcept {
        return unpaid == 0 ? Visit(combination) : Verdict::GoOn;
    }

    Verdict Visit(const Counts& combination) noexcept {
        found = combination;
        isFound = true;
        return Verdict::EndSearch;
    }
};

bool FindExact(const SearchUnits& units, Counts& combination) noexcept {
    FirstExactRule search(units);
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
/// first that the search would meet.
bool IsAnswer(const SearchUnits& units, std::uint32_t unpaid) noexcept {
    return unpaid == 0 && (units.n == 1 || !units.ReachSignBit());
}

}  // namespace

std::int32_t CMixAlgorithm::CalcMinimumNotes(const MixRequest& request,
                                             const LcuTable& table,
                                             LcuNotes& notes) noexcept {
    if (!HasSearchableSize(table)) {
        return Fail(Failure::TooManyUnits);
    }
    const SearchUnits units(request, table);
    if (units.HaveZeroValue()) {
        return Fail(Failure::NotDispensable);
    }
    Counts combination{};
    const std::uint32_t unpaid = TakeGreedily(units, combination);
    const bool isExact = IsAnswer(units, unpaid) || (units.n > 1 && FindExact(units, combination));
    if (!isExact && !units.allowsPartial) {
        return Fail(Failure::NotDispensable);
    }
    StoreNotes(units, combination, notes);
    return CheckMaximumDispense(request, table, notes);
}
