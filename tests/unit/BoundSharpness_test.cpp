// The bounds may neither lose a combination (Bounds_test.cpp) nor let pass what their definitions
// rule out: here they are compared with the definitions themselves, written out plainly.

#include "Band.h"
#include "ExactWalk.h"
#include "LimitBound.h"
#include "OverLimitWalk.h"
#include "TableBuilder.h"
#include "UnevennessBound.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <random>

namespace {

/// A search under way: units, the counts chosen up to a level, and what is left to the others.
struct Start {
    SearchUnits units;
    Counts combination;
    unsigned level;      ///< chosen are the units up to this one
    std::uint32_t rest;  ///< left to the units after it
};

class Draws {
public:
    std::uint32_t Below(std::uint32_t end) {
        return static_cast<std::uint32_t>(generator_() % end);
    }

    /// Two to five units of any values, coins among them, with any counts chosen that the limit
    /// allows.
    Start Next() {
        Table table;
        const unsigned n = 2 + Below(4);
        for (unsigned unit = 0; unit < n; ++unit) {
            const std::uint32_t value = 1 + Below(Below(2) == 0 ? 10 : 200);
            if (Below(3) == 0) {
                table.Coin(value, 1 + Below(40));
            } else {
                table.Bill(value, 1 + Below(40));
            }
        }
        Start start{table.Limit(Below(60)).Units(), {}, Below(n - 1), 0};
        ItemTotals taken;
        for (unsigned unit = 0; unit <= start.level; ++unit) {
            const bool areCoins = start.units.areCoins[unit];
            const std::uint32_t left = start.units.limit - (areCoins ? taken.coins : taken.notes);
            start.combination[unit] = Below(left / 2 + 1);
            taken.Add(areCoins, start.combination[unit]);
        }
        const std::uint32_t most = 1 + Below(30);
        for (unsigned unit = start.level + 1; unit < n; ++unit) {
            start.rest += start.units.values[unit] * Below(most);
        }
        return start;
    }

private:
    std::mt19937 generator_{20261121};
};

constexpr int kDraws = 20000;

/// The counts of [0, 99] that are left in a narrowed range.
template <typename Bound>
CountRange Narrowed(const Bound& bound, const Start& start) {
    CountRange range{0, 99};
    bound.Narrow(start.level, start.combination, start.rest, range);
    return range;
}

/// Compares a range with a definition, count by count.
void ExpectJust(const CountRange& range, const std::function<bool(std::uint32_t)>& belongs) {
    for (std::uint32_t count = 0; count <= 99; ++count) {
        ASSERT_EQ(belongs(count), count >= range.low && count <= range.high)
            << count << " in " << range.low << " to " << range.high;
    }
}

/// The largest value of a kind among the units after a level, 0 without any.
std::uint32_t LargestAfter(const SearchUnits& units, unsigned level, bool ofCoins) {
    std::uint32_t largest = 0;
    for (unsigned unit = level + 1; unit < units.n; ++unit) {
        largest = units.areCoins[unit] == ofCoins ? std::max(largest, units.values[unit]) : largest;
    }
    return largest;
}

TEST(LimitBound, KeepsJustTheCountsFromWhichTheLargestItemsCanReachTheRest) {
    Draws draws;
    for (int draw = 0; draw < kDraws; ++draw) {
        Start start = draws.Next();
        const SearchUnits& units = start.units;
        const std::uint32_t shortfall = draws.Below(2) * draws.Below(50);
        const ItemTotals taken = units.TotalsOf(start.combination, start.level);
        ExpectJust(Narrowed(LimitBound(units, shortfall), start), [&](std::uint32_t count) {
            ItemTotals all = taken;
            all.Add(units.areCoins[start.level], count);
            if (!all.AreWithin(units.limit)) {
                return false;
            }
            const std::uint32_t reach =
                (units.limit - all.notes) * LargestAfter(units, start.level, false) +
                (units.limit - all.coins) * LargestAfter(units, start.level, true);
            return count * units.values[start.level] + reach + shortfall >= start.rest;
        });
        ASSERT_FALSE(HasFailure()) << "draw " << draw;
    }
}

TEST(Band, KeepsJustTheCountsWhoseNeighboursInTheBandCanPayTheRest) {
    Draws draws;
    for (int draw = 0; draw < kDraws; ++draw) {
        const Start start = draws.Next();
        const SearchUnits& units = start.units;
        const std::uint32_t shortfall = draws.Below(2) * draws.Below(50);
        const std::uint32_t width = draws.Below(12);
        ExpectJust(Narrowed(Band(units, shortfall, width), start), [&](std::uint32_t count) {
            for (unsigned before = 0; before < start.level; ++before) {
                if (std::max(count, start.combination[before]) -
                        std::min(count, start.combination[before]) >
                    width) {
                    return false;
                }
            }
            std::int64_t least = std::int64_t{count} * units.values[start.level];
            std::int64_t most = least;
            for (unsigned after = start.level + 1; after < units.n; ++after) {
                least += (std::int64_t{count} - width) * units.values[after];
                most += (std::int64_t{count} + width) * units.values[after];
            }
            return least <= start.rest && most + shortfall >= start.rest;
        });
        ASSERT_FALSE(HasFailure()) << "draw " << draw;
    }
}

TEST(OverLimitWalk, EntersJustWhereTheSmallestItemsOfAKindBringItOverTheLimit) {
    Draws draws;
    for (int draw = 0; draw < kDraws; ++draw) {
        const Start start = draws.Next();
        const SearchUnits& units = start.units;
        const ExactWalk walk(units);
        Refusal refusal;
        const OverLimitRule rule(units, walk, refusal);
        const ItemTotals taken = units.TotalsOf(start.combination, start.level + 1);
        const auto mayExceed = [&](bool coins) {
            std::uint32_t items = coins ? taken.coins : taken.notes;
            std::uint32_t smallest = 0;
            for (unsigned unit = start.level + 1; unit < units.n; ++unit) {
                if (units.areCoins[unit] == coins) {
                    smallest =
                        smallest == 0 ? units.values[unit] : std::min(smallest, units.values[unit]);
                }
            }
            items += smallest == 0 ? 0 : start.rest / smallest;
            return items > units.limit;
        };
        ASSERT_EQ(mayExceed(false) || mayExceed(true),
                  rule.Enters(start.level, start.combination, start.rest))
            << "draw " << draw;
    }
}

constexpr double kTooMuch = 1e9;  // near the end of 32 bits

/// The least unevenness score of all ways to go on with real numbers that pay `paid` and keep to
/// the most items; kTooMuch where there is none.
struct LeastUnevenness {
    double score;
    bool takesMostItems;
};

LeastUnevenness LeastUnevennessOf(const Start& start, std::uint32_t mostItems, double paid) {
    const double k = start.units.n;
    double items = 0;
    double squares = 0;
    for (unsigned unit = 0; unit <= start.level; ++unit) {
        const double count = start.combination[unit];
        items += count;
        squares += count * count;
    }
    double free = 0;
    double sum = 0;
    double square = 0;
    for (unsigned unit = start.level + 1; unit < start.units.n; ++unit) {
        const double value = start.units.values[unit];
        free += 1;
        sum += value;
        square += value * value;
    }
    const double variance = free * square - sum * sum;
    // With so many further items: all equal but for what the payment asks for.
    const auto scoreWith = [&](double further) {
        const double away = free * paid - further * sum;
        const double ofFree =
            further * further / free + (variance > 0 ? away * away / (free * variance) : 0);
        const double total = items + further;
        return k * (k * (squares + ofFree) - total * total);
    };
    if (variance == 0) {
        const double further = paid * free / sum;
        return {further <= mostItems - items ? scoreWith(further) : kTooMuch, false};
    }
    // A parabola in the number of items: its lowest point, or the most items.
    const double atZero = scoreWith(0);
    const double curve = (scoreWith(1) + scoreWith(-1)) / 2 - atZero;
    const double slope = (scoreWith(1) - scoreWith(-1)) / 2;
    const double best = -slope / (2 * curve);
    const double left = mostItems - items;
    return {scoreWith(std::min(best, left)), left < best - 1e-6};
}

TEST(UnevennessBound, IsAboveJustWhereRealNumbersScoreAbove) {
    Draws draws;
    int compared = 0;
    for (int draw = 0; draw < kDraws; ++draw) {
        const Start start = draws.Next();
        const SearchUnits& units = start.units;
        const std::uint32_t mostItems = units.HaveCoins() ? 2 * units.limit : units.limit;
        const auto [least, takesMostItems] = LeastUnevennessOf(start, mostItems, start.rest);
        if (least >= kTooMuch) {
            continue;
        }
        ++compared;
        UnevennessBound bound(units, mostItems, 0);
        bound.AimAt(static_cast<std::uint32_t>(std::ceil(least - 1e-6)));
        ASSERT_FALSE(bound.IsAbove(start.level, start.combination, start.rest)) << "draw " << draw;
        // Scores are multiples of k, and of k * k where the number of items is free.
        const double step = takesMostItems ? units.n : units.n * units.n;
        if (least > step) {
            bound.AimAt(static_cast<std::uint32_t>(least - step - 1e-6));
            ASSERT_TRUE(bound.IsAbove(start.level, start.combination, start.rest))
                << "draw " << draw << ": " << least;
        }
    }
    EXPECT_GT(compared, kDraws / 2);
}

TEST(UnevennessBound, LeavesTheShortfallUnpaidWhereThatIsMoreEven) {
    Draws draws;
    int compared = 0;
    for (int draw = 0; draw < kDraws; ++draw) {
        const Start start = draws.Next();
        const SearchUnits& units = start.units;
        const std::uint32_t mostItems = units.HaveCoins() ? 2 * units.limit : units.limit;
        const std::uint32_t shortfall = 1 + draws.Below(100);
        const std::uint32_t leastPaid = start.rest > shortfall ? start.rest - shortfall : 0;
        const double whole = LeastUnevennessOf(start, mostItems, start.rest).score;
        const double lowest = LeastUnevennessOf(start, mostItems, leastPaid).score;
        // The more even payment is the one end, the other, or one between them.
        const double fromWhole =
            LeastUnevennessOf(start, mostItems, start.rest - 1e-3).score - whole;
        const double fromLowest =
            LeastUnevennessOf(start, mostItems, leastPaid + 1e-3).score - lowest;
        const double least = std::min(whole, lowest);
        if (std::max(whole, lowest) >= kTooMuch) {
            continue;
        }
        UnevennessBound bound(units, mostItems, shortfall);
        bound.AimAt(static_cast<std::uint32_t>(std::ceil(least - 1e-6)));
        ASSERT_FALSE(bound.IsAbove(start.level, start.combination, start.rest)) << "draw " << draw;
        const double step = units.n * units.n;
        if (fromWhole < 0 && fromLowest < 0) {
            bound.AimAt(0);
            ASSERT_FALSE(bound.IsAbove(start.level, start.combination, start.rest))
                << "draw " << draw;
        } else if ((fromWhole > 1e-5 || fromLowest > 1e-5) && least > step) {
            ++compared;
            bound.AimAt(static_cast<std::uint32_t>(least - step - 1e-6));
            ASSERT_TRUE(bound.IsAbove(start.level, start.combination, start.rest))
                << "draw " << draw << ": " << least;
        }
    }
    EXPECT_GT(compared, kDraws / 2);
}

TEST(UnevennessBound, FitsWhileAllValuesTimesTheLimitAreBelow2To26) {
    const auto fits = [](unsigned limit, std::uint32_t first, std::uint32_t last) {
        return UnevennessBound::Fits(
            Table().Bill(first, 1).Bill(0x100, 1).Bill(last, 1).Limit(limit).Units());
    };
    EXPECT_TRUE(fits(0x100, 0x3FE00, 0xFF));
    EXPECT_FALSE(fits(0x100, 0x3FE00, 0x100));
    EXPECT_TRUE(fits(1, 0x3FFFE00, 0xFF));
    EXPECT_FALSE(fits(1, 0x3FFFE00, 0x100));
    EXPECT_TRUE(fits(0, 0x3FFFE00, 0xFF));  // as for 1
    EXPECT_FALSE(fits(0, 0x3FFFE00, 0x100));
    EXPECT_FALSE(fits(2, 0xFFFFFFFF, 0xFFFFFFFF));  // the sum does not wrap
}

}  // namespace
