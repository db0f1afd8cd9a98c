#pragma once

#include "CountDown.h"
#include "LimitBound.h"
#include "OverLimitWalk.h"
#include "SingleUnit.h"

/// Keeps the most even of the combinations that it is shown: what equal notes and equal emptying
/// share. They differ in how they measure evenness and in how they walk.
///
/// @tparam Evenness  `std::uint32_t Score(const Counts&) const`, 0 for perfectly even; and
///   `void Walk(const ExactWalk&, MostEven&) const` for three and more units.
template <typename Evenness>
class MostEven {
public:
    MostEven(const SearchUnits& searched, const Evenness& measure) noexcept
        : units(searched), evenness(measure) {}

    /// Judges a combination. One over the limit is passed over; on purpose it ends the pass when
    /// there are two units.
    Verdict Consider(const Counts& combination) noexcept {
        if (!units.IsWithinLimit(combination)) {
            refusal.Remember(combination);
            return units.n == 2 ? Verdict::EndSearch : Verdict::GoOn;
        }
        Keep(combination, evenness.Score(combination));
        return Verdict::GoOn;
    }

    /// Of equal scores the one stays that the loops meet first, whatever order they came in here.
    void Keep(const Counts& combination, std::uint32_t score) noexcept {
        if (!isFound || score < best || (score == best && combination > found)) {
            isFound = true;
            best = score;
            found = combination;
        }
    }

    /// One pass over the combinations that make the whole amount, or over those that fall short.
    void SearchExact() noexcept { Search(ExactWalk(units), false); }
    void SearchShort() noexcept { Search(ExactWalk::WithShortfall(units), true); }

    const SearchUnits& units;
    const Evenness& evenness;
    bool isFound = false;
    std::uint32_t best{};  ///< score of what was found
    Counts found{};
    Refusal refusal;

private:
    struct LoopRule : CountDownRule {
        MostEven& most;
        bool wantsShort;

        LoopRule(MostEven& search, bool shortOnes) noexcept
            : CountDownRule(search.units), most(search), wantsShort(shortOnes) {}
        Verdict Visit(const Counts& combination, std::uint32_t unpaid) noexcept {
            return (unpaid != 0) == wantsShort ? most.Consider(combination) : Verdict::GoOn;
        }
    };

    /// For two units the walk stays whole, since the first combination over the limit ends it.
    struct TwoUnitRule : WalkRule {
        MostEven& most;
        const ExactWalk& walk;

        TwoUnitRule(MostEven& search, const ExactWalk& exactWalk) noexcept
            : most(search), walk(exactWalk) {}
        Verdict Visit(const Counts& combination) noexcept {
            return walk.Regards(combination) ? most.Consider(combination) : Verdict::GoOn;
        }
    };

    void Search(const ExactWalk& walk, bool wantsShort) noexcept {
        if (units.ReachSignBit()) {
            LoopRule loops(*this, wantsShort);
            CountDown(loops);
        } else if (units.n == 2) {
            TwoUnitRule rule(*this, walk);
            walk.Run<Direction::Downwards>(rule);
        } else if (walk.MayMakeAmount()) {
            evenness.Walk(walk, *this);
            if (isFound || units.allowsPartial) {
                RecallRefusal(walk);
            }
        }
    }

    /// A narrowed walk does not see every combination over the limit, and of a search that succeeds
    /// the last one's code stays behind. (A search that fails leaves a code of its own.)
    void RecallRefusal(const ExactWalk& walk) noexcept {
        OverLimitRule rule(units, walk, refusal);
        if (rule.MayExceed()) {
            walk.Run<Direction::Upwards>(rule);
        }
    }
};

/// Shows a search of three and more units the combinations within the limit: the bound is exact at
/// the last two units, so none beyond it is left. Of a walk with shortfall all of them fall short,
/// since otherwise the walk before would have found one that makes the whole amount.
template <typename Evenness>
struct WithinLimitRule : WalkRule {
    MostEven<Evenness>& most;
    LimitBound bound;

    WithinLimitRule(MostEven<Evenness>& search, const ExactWalk& exactWalk) noexcept
        : most(search), bound(search.units, exactWalk.MostShortfall()) {}

    void Narrow(unsigned level,
                const Counts& combination,
                std::uint32_t rest,
                CountRange& range) const noexcept {
        bound.Narrow(level, combination, rest, range);
    }

    /// Nothing replaces a score of 0, since only a smaller one would, or an equal one met earlier.
    Verdict Visit(const Counts& combination) noexcept {
        most.Keep(combination, most.evenness.Score(combination));
        return most.best == 0 ? Verdict::EndSearch : Verdict::GoOn;
    }
};

/// Pays the amount most evenly; when nothing makes it and a partial amount is allowed, what falls
/// short of it most evenly, however far. The table has a size and values that can be searched.
template <typename Evenness>
std::int32_t
PayMostEvenly(const MixRequest& request, const LcuTable& table, LcuNotes& notes) noexcept {
    const SearchUnits units(request, table);
    if (units.HaveZeroValue()) {
        return Fail(Failure::NotDispensable);
    }
    if (units.n == 1) {
        return PayFromSingleUnit(units, notes);
    }
    const Evenness evenness(units);
    MostEven<Evenness> search(units, evenness);
    search.SearchExact();
    if (!search.isFound && units.allowsPartial) {
        search.SearchShort();
    }
    if (!search.isFound) {
        return Fail(Failure::NotDispensable);
    }
    search.refusal.Record(request, table, units);
    StoreNotes(units, search.found, notes);
    return kSuccess;
}
