#include "CMixAlgorithm.h"
#include "ShareBound.h"
#include "ShareLine.h"

namespace {

/// Goes through the lines of the last two units, only where something more even may follow. Of a
/// walk with shortfall each line is a single combination, since the last unit leaves less than one
/// of its items.
struct LineRule : WithinLimitRule<Shares> {
    ChosenShares chosen;
    ShareBound shareBound;
    ShareLine line;

    LineRule(MostEven<Shares>& search, const ExactWalk& walk) noexcept
        : WithinLimitRule(search, walk), chosen(search.evenness),
          shareBound(search.units, search.evenness, walk.MostShortfall()), line(search, walk) {}

    bool Enters(unsigned level, const Counts& combination, std::uint32_t rest) noexcept {
        chosen.Choose(level, combination[level]);
        return !most.isFound || !shareBound.IsAbove(most.best, chosen, level, rest);
    }

    static constexpr bool TakesLines() noexcept { return true; }

    /// Nothing replaces a score of 0 but another one that the loops meet earlier.
    Verdict VisitLine(const Counts& head, std::uint32_t counts) noexcept {
        line.Follow(chosen, head, counts);
        return most.best == 0 && !IsBeforeFound(head) ? Verdict::EndSearch : Verdict::GoOn;
    }

    /// Whether the loops meet the line earlier than the one of what was found.
    bool IsBeforeFound(const Counts& head) const noexcept {
        const unsigned last = most.units.n - 2;
        return std::lexicographical_compare(most.found.begin(), most.found.begin() + last,
                                            head.begin(), head.begin() + last);
    }
};

/// Walks each amount that a walk with shortfall may pay by itself, so that there is a line of the
/// last two units there, too.
void WalkEachAmount(const ExactWalk& walk, MostEven<Shares>& search) noexcept {
    ExactWalk exact(search.units);
    LineRule rule(search, exact);
    const std::uint32_t most = std::min(walk.MostShortfall(), walk.Amount());
    for (std::uint32_t left = walk.LeastShortfall(); left <= most; left += exact.Divisor()) {
        exact.PayInstead(walk.Amount() - left);
        exact.Run<Direction::Downwards>(rule);
    }
}

constexpr unsigned kMostAmounts = 100;  ///< to be walked by themselves

}  // namespace

void Shares::Walk(const ExactWalk& walk, MostEven<Shares>& search) const noexcept {
    const std::uint32_t shortfall = walk.MostShortfall();
    if (shortfall != 0 && shortfall <= std::uint64_t{kMostAmounts} * walk.Divisor()) {
        WalkEachAmount(walk, search);
    } else {
        LineRule rule(search, walk);
        walk.Run<Direction::Downwards>(rule);
    }
}

std::int32_t CMixAlgorithm::CalcEqualEmptying(const MixRequest& request,
                                              const LcuTable& table,
                                              LcuNotes& notes) noexcept {
    if (!HasSearchableSize(table)) {
        return Fail(Failure::TooManyUnits);
    }
    return PayMostEvenly<Shares>(request, table, notes);
}
