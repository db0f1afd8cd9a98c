#pragma once

#include "CommonDivisor.h"
#include "SearchUnits.h"

/// Whether first-fit emptying can be decided without running its loops.
///
/// What is left to the last unit must not wrap before it is short: one item more than it holds, and
/// one of the last but one, are worth 2^32 at most. And all items that can come together, those
/// below 0 and the limit too, stay below 2^31, so that no total wraps twice. Where their sum itself
/// does not fit 64 bits, the first condition fails.
///
/// @param units  two or more, of values other than 0.
template <unsigned kWordBits>
bool NothingWrapsTwice(const SearchUnits& units) noexcept {
    constexpr std::uint64_t kWords = std::uint64_t{1} << kWordBits;
    const std::uint64_t innerValue = units.values[units.n - 2];
    const std::uint64_t shortFrom =
        (std::uint64_t{units.counts[units.n - 1]} + 1) * units.values[units.n - 1];
    std::uint64_t items = 2 + units.limit + shortFrom / innerValue;
    for (unsigned unit = 0; unit < units.n; ++unit) {
        items += units.counts[unit];
    }
    return shortFrom + innerValue <= kWords && items < kWords / 2;
}

/// Totals of notes and of coins before they wrap: a count that has run past 0 is negative here.
struct UnwrappedTotals {
    std::int64_t notes = 0;
    std::int64_t coins = 0;

    void Add(bool areCoins, std::int64_t items) noexcept { (areCoins ? coins : notes) += items; }
};

/// Combinations of the last two units, one after the other: from each to the next, items of the
/// last but one unit are exchanged for items of the last.
struct PairPoints {
    std::int64_t inner;     ///< items of the last but one unit in the first of them
    std::uint32_t last;     ///< items of the last unit in it
    std::uint32_t further;  ///< combinations after the first, as they were found
};

/// The total of one kind at an end of the innermost loop: with the most items of the last but one
/// unit, or of the last.
struct PairEnd {
    std::int64_t items;  ///< rounded down
    std::uint32_t
        value;  ///< by so much more rest it is one item more; 0 where rests change nothing
};

/// The innermost loop of first-fit emptying, solved instead of stepped.
///
/// It pays a rest with the last two units. The count of the last but one starts at the most that
/// fits and falls past 0; each item less leaves its value to the last unit, until that is short.
/// Of these steps only those count at which the value of the last unit divides what is left to it:
/// one residue of counts, so they lie evenly spaced.
///
/// What is left to the last unit must not wrap before the unit is short: one item more than it
/// holds, and one of the last but one, are worth 2^32 at most.
class LastPair {
public:
    /// @param units  two or more.
    explicit LastPair(const SearchUnits& units) noexcept
        : units_(units), inner_(units.n - 2), last_(units.n - 1) {
        const CommonDivisor common = CommonDivisorOf(InnerValue(), LastValue());
        divisor_ = common.divisor;
        factor_ = common.factor;
        taken_ = LastValue() / divisor_;
        given_ = InnerValue() / divisor_;
    }

    /// Rests that it does not divide have no combination.
    std::uint32_t Divisor() const noexcept { return divisor_; }

    std::uint64_t InnerMoney() const noexcept {
        return std::uint64_t{InnerValue()} * units_.counts[inner_];
    }
    std::uint64_t LastMoney() const noexcept {
        return std::uint64_t{LastValue()} * units_.counts[last_];
    }

    /// From this rest on the last unit is short at the first step.
    std::uint64_t Reach() const noexcept { return InnerMoney() + LastMoney() + LastValue(); }

    /// So many counts at most lie below 0 before the last unit is short.
    std::uint64_t StepsPastZero() const noexcept {
        return (LastMoney() + LastValue()) / InnerValue();
    }

    PairEnd MostOfInner(std::uint32_t rest, bool coins) const noexcept {
        const bool innerCounts = units_.areCoins[inner_] == coins;
        const bool lastCounts = units_.areCoins[last_] == coins;
        const std::uint32_t most = innerCounts ? units_.MostOf(inner_, rest) : 0;
        if (rest <= InnerMoney()) {
            return {most, innerCounts ? InnerValue() : 0};
        }
        const std::uint32_t left = rest - static_cast<std::uint32_t>(InnerMoney());
        return {std::int64_t{most} + (lastCounts ? left / LastValue() : 0),
                lastCounts ? LastValue() : 0};
    }

    PairEnd MostOfLast(std::uint32_t rest, bool coins) const noexcept {
        std::int64_t items = units_.areCoins[last_] == coins ? units_.counts[last_] : 0;
        if (units_.areCoins[inner_] != coins) {
            return {items, 0};
        }
        const auto money = static_cast<std::uint32_t>(LastMoney());
        if (rest >= money) {
            items += (rest - money) / InnerValue();
        } else {
            items -= (money - rest - 1) / InnerValue() + 1;
        }
        return {items, InnerValue()};
    }

    /// What the total of a kind changes by from one combination to the next.
    std::int64_t ChangeOf(bool coins) const noexcept {
        std::int64_t change = 0;
        if (units_.areCoins[inner_] == coins) {
            change -= taken_;
        }
        if (units_.areCoins[last_] == coins) {
            change += given_;
        }
        return change;
    }

    /// The combinations that make `rest`, in the order of the loop.
    ///
    /// @param rest  a multiple of Divisor(); from Reach() on there are none.
    /// @return whether there are any.
    bool FindPoints(std::uint32_t rest, PairPoints& points) const noexcept {
        const std::uint32_t most = units_.MostOf(inner_, rest);
        const std::uint32_t left = rest - InnerValue() * most;
        // With everything divided by the divisor: left + fewer * given = 0 modulo taken, and the
        // factor is the inverse of given.
        const std::uint32_t over = left / divisor_ % taken_;
        const std::uint64_t missing = over == 0 ? 0 : taken_ - over;
        const auto fewer = static_cast<std::uint32_t>(missing * factor_ % taken_);
        const std::uint64_t leftToLast = left + std::uint64_t{fewer} * InnerValue();
        if (leftToLast > LastMoney()) {
            return false;
        }
        points.inner = std::int64_t{most} - fewer;
        points.last = static_cast<std::uint32_t>(leftToLast) / LastValue();
        points.further = (units_.counts[last_] - points.last) / given_;
        return true;
    }

    /// Totals of the first of the points, with what the units before take.
    UnwrappedTotals TotalsOf(const PairPoints& points, UnwrappedTotals totals = {}) const noexcept {
        totals.Add(units_.areCoins[inner_], points.inner);
        totals.Add(units_.areCoins[last_], points.last);
        return totals;
    }

    /// Narrows points to the first one within the limit and those after it.
    ///
    /// @param others  what the units before take.
    /// @return whether there is one; `passed` then tells how many before it are over the limit.
    bool FindWithinLimit(const UnwrappedTotals& others,
                         PairPoints& points,
                         std::uint32_t& passed) const noexcept {
        const UnwrappedTotals totals = TotalsOf(points, others);
        std::uint32_t first = 0;
        std::uint32_t end = points.further;
        if (!KeepWithinLimit(totals.notes, ChangeOf(false), first, end) ||
            !KeepWithinLimit(totals.coins, ChangeOf(true), first, end) || first > end) {
            return false;
        }
        Exchange(first, points);
        passed = first;
        return true;
    }

    /// Goes on by so many combinations.
    void Exchange(std::uint32_t turns, PairPoints& points) const noexcept {
        points.inner -= std::int64_t{turns} * taken_;
        points.last += turns * given_;
    }

    /// Goes back by one combination.
    void ExchangeBack(PairPoints& points) const noexcept {
        points.inner += taken_;
        points.last -= given_;
    }

private:
    std::uint32_t InnerValue() const noexcept { return units_.values[inner_]; }
    std::uint32_t LastValue() const noexcept { return units_.values[last_]; }

    /// Narrows first to end to the turns at which a total lies between 0 and the limit; a total
    /// below 0 wraps to one far above it.
    bool KeepWithinLimit(std::int64_t total,
                         std::int64_t change,
                         std::uint32_t& first,
                         std::uint32_t& end) const noexcept {
        if (change < 0) {  // seen from the limit, what falls rises
            total = units_.limit - total;
            change = -change;
        }
        if (total > units_.limit) {
            return false;
        }
        if (change == 0) {
            return total >= 0;
        }
        // On the lines that are asked about, total and limit lie less than 2^32 apart, and so do
        // total and 0.
        const auto rise = static_cast<std::uint32_t>(change);
        if (total < 0) {
            const auto below = static_cast<std::uint32_t>(-total);
            first = std::max(first, (below - 1) / rise + 1);
        }
        end = std::min(end, static_cast<std::uint32_t>(units_.limit - total) / rise);
        return true;
    }

    const SearchUnits& units_;
    unsigned inner_;
    unsigned last_;
    std::uint32_t divisor_;  ///< of both values
    std::uint32_t factor_;   ///< see FindPoints
    std::uint32_t taken_;    ///< items of the last but one unit less in the next combination
    std::uint32_t given_;    ///< items of the last unit more
};
