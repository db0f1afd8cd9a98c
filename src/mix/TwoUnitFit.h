#pragma once

#include "LastPair.h"
#include "Refusal.h"

/// First-fit emptying with two units, decided instead of run: one loop, which ends by itself where
/// the second unit is short (LastPair.h), and with a partial amount allowed the same loop again,
/// for the first combination that falls short of the amount.
template <unsigned kWordBits>
class TwoUnitFit {
public:
    /// @param units  two, of values other than 0.
    explicit TwoUnitFit(const SearchUnits& units) noexcept : units_(units), pair_(units) {}

    /// @param refusal  receives the last combination over the limit before the one that is found.
    bool Find(Counts& found, Refusal& refusal) const noexcept {
        return FindExact(found, refusal) || (units_.allowsPartial && FindShort(found, refusal));
    }

private:
    static std::uint32_t Wrap(std::int64_t number) noexcept {
        return static_cast<std::uint32_t>(static_cast<std::uint64_t>(number) &
                                          ((std::uint64_t{1} << kWordBits) - 1));
    }

    static Counts CombinationOf(const PairPoints& points) noexcept {
        return {Wrap(points.inner), points.last};
    }

    bool FindExact(Counts& found, Refusal& refusal) const noexcept {
        PairPoints points{};
        if (units_.amount % pair_.Divisor() != 0 || !pair_.FindPoints(units_.amount, points)) {
            return false;
        }
        std::uint32_t passed = points.further + 1;
        const bool isFound = pair_.FindWithinLimit(UnwrappedTotals{}, points, passed);
        if (isFound) {
            found = CombinationOf(points);
        }
        if (passed != 0) {
            isFound ? pair_.ExchangeBack(points) : pair_.Exchange(points.further, points);
            refusal.Remember(CombinationOf(points));
        }
        return isFound;
    }

    /// One step of the second loop.
    struct Step {
        PairPoints taken;
        std::uint32_t unpaid;
    };

    /// @param fewer  items of the first unit less than at the first step.
    Step StepAt(std::uint32_t fewer) const noexcept {
        const std::uint32_t most = units_.MostOf(0, units_.amount);
        const std::uint32_t left =
            units_.amount - units_.values[0] * most + units_.values[0] * fewer;
        const std::uint32_t value = units_.values[1];
        return {{std::int64_t{most} - fewer, left / value, {}}, left % value};
    }

    /// Short of the amount is every step that leaves something unpaid, never more than the amount:
    /// where the first count has run past 0 and the total has not, the second unit has as many
    /// items at least, each worth more.
    bool FindShort(Counts& found, Refusal& refusal) const noexcept {
        std::uint32_t fewer = 0;
        for (;;) {
            const Step step = StepAt(fewer);
            if (step.taken.last > units_.counts[1]) {
                return false;
            }
            const UnwrappedTotals totals = pair_.TotalsOf(step.taken);
            const std::uint32_t off =
                std::max(StepsOffLimit(totals.notes, false), StepsOffLimit(totals.coins, true));
            if (off == kForEver) {
                return false;
            }
            if (off == 0) {  // and not exact: that would have been found before
                found = CombinationOf(step.taken);
                break;
            }
            // This may lead past the step at which the last unit is short, and what is left may
            // wrap there: once, to so little that the total is below 0. That ends the search too.
            fewer += off;
        }
        // All before it that fall short are over the limit.
        while (fewer-- != 0) {
            const Step step = StepAt(fewer);
            if (step.unpaid != 0) {
                refusal.Remember(CombinationOf(step.taken));
                break;
            }
        }
        return true;
    }

    static constexpr std::uint32_t kForEver = 0xFFFFFFFFU;

    /// For how many steps at least a total stays off the limit. From step to step a total never
    /// turns: it falls by one item at most, or it never falls.
    std::uint32_t StepsOffLimit(std::int64_t total, bool coins) const noexcept {
        if (total >= 0 && total <= units_.limit) {
            return 0;
        }
        const bool returns = total > 0 && pair_.ChangeOf(coins) < 0;
        return returns ? static_cast<std::uint32_t>(total - units_.limit) : kForEver;
    }

    const SearchUnits& units_;
    LastPair pair_;
};
