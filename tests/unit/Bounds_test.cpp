#include "PlainLoops.h"

#include "ExactWalk.h"
#include "LimitBound.h"
#include "UnevennessBound.h"

#include <numeric>

namespace {

/// Writes down the combinations within the limit of a walk that the bound narrows.
struct LimitedRecorder : WalkRule {
    const SearchUnits& units;
    const ExactWalk& walk;
    LimitBound bound;
    Combinations met;

    LimitedRecorder(const SearchUnits& searched, const ExactWalk& exactWalk)
        : units(searched), walk(exactWalk), bound(searched, exactWalk.MostShortfall()) {}

    void
    Narrow(unsigned level, const Counts& combination, std::uint32_t rest, CountRange& range) const {
        bound.Narrow(level, combination, rest, range);
    }

    Verdict Visit(const Counts& combination) {
        if (walk.Regards(combination) && units.IsWithinLimit(combination)) {
            Counts ofUnits{};
            std::copy_n(combination.begin(), units.n, ofUnits.begin());
            met.push_back(ofUnits);
        }
        return Verdict::GoOn;
    }
};

Combinations WithinLimit(const SearchUnits& units, const Combinations& combinations) {
    Combinations within;
    for (const Counts& combination : combinations) {
        if (units.IsWithinLimit(combination)) {
            within.push_back(combination);
        }
    }
    return within;
}

void ForEachLimit(const SearchUnits& units, const std::function<void(const SearchUnits&)>& visit) {
    for (const std::uint32_t limit : {0U, 1U, 2U, 3U, 5U, 8U}) {
        SearchUnits limited = units;
        limited.limit = limit;
        visit(limited);
    }
}

TEST(LimitBound, LosesNoExactCombinationWithinTheLimit) {
    ForEachSmallTable([](const SearchUnits& all) {
        ForEachLimit(all, [](const SearchUnits& units) {
            const ExactWalk walk(units);
            LimitedRecorder recorder(units, walk);
            walk.Run<Direction::Downwards>(recorder);
            EXPECT_EQ(recorder.met, WithinLimit(units, PlainLoops(units).Exact()));
        });
    });
}

TEST(LimitBound, LosesNoShortCombinationWithinTheLimit) {
    ForEachSmallTable([](const SearchUnits& all) {
        ForEachLimit(all, [](const SearchUnits& units) {
            const ExactWalk walk = ExactWalk::WithShortfall(units);
            LimitedRecorder recorder(units, walk);
            walk.Run<Direction::Downwards>(recorder);
            EXPECT_EQ(recorder.met, WithinLimit(units, PlainLoops(units).Short()));
        });
    });
}

std::uint32_t UnevennessOf(const SearchUnits& units, const Counts& combination) {
    std::int64_t total = 0;
    for (unsigned unit = 0; unit < units.n; ++unit) {
        total += combination[unit];
    }
    std::int64_t unevenness = 0;
    for (unsigned unit = 0; unit < units.n; ++unit) {
        const std::int64_t deviation = std::int64_t{units.n} * combination[unit] - total;
        unevenness += deviation * deviation;
    }
    return static_cast<std::uint32_t>(unevenness);
}

TEST(UnevennessBound, IsNeverAboveTheUnevennessOfACombinationThatFollows) {
    ForEachSmallTable([](const SearchUnits& all) {
        ForEachLimit(all, [](const SearchUnits& units) {
            UnevennessBound bound(units, units.HaveCoins() ? 2 * units.limit : units.limit, 0);
            for (const Counts& combination : WithinLimit(units, PlainLoops(units).Exact())) {
                const std::uint32_t unevenness = UnevennessOf(units, combination);
                bound.AimAt(unevenness);
                std::uint32_t rest = units.amount;
                for (unsigned level = 0; level + 1 < units.n; ++level) {
                    rest -= units.values[level] * combination[level];
                    EXPECT_FALSE(bound.IsAbove(level, combination, rest));
                }
            }
        });
    });
}

TEST(UnevennessBound, IsNeverAboveTheUnevennessOfAShortCombinationThatFollows) {
    ForEachSmallTable([](const SearchUnits& all) {
        ForEachLimit(all, [](const SearchUnits& units) {
            const std::uint32_t shortfall = ExactWalk::WithShortfall(units).MostShortfall();
            UnevennessBound bound(units, units.HaveCoins() ? 2 * units.limit : units.limit,
                                  shortfall);
            std::uint32_t divisor = 0;
            for (unsigned unit = 0; unit < units.n; ++unit) {
                divisor = std::gcd(divisor, units.values[unit]);
            }
            for (const Counts& combination : WithinLimit(units, PlainLoops(units).Short())) {
                bound.AimAt(UnevennessOf(units, combination));
                std::uint32_t rest = units.amount - units.amount % divisor;
                for (unsigned level = 0; level + 1 < units.n; ++level) {
                    rest -= units.values[level] * combination[level];
                    EXPECT_FALSE(bound.IsAbove(level, combination, rest));
                }
            }
        });
    });
}

TEST(UnevennessBound, SeesThatAnUnequalStartCannotBecomeEqual) {
    const Table table = Table().Bill(50, 99).Bill(20, 99).Bill(10, 99).Amount(800);
    const SearchUnits units = table.Units();
    const UnevennessBound bound(units, units.limit, 0);
    EXPECT_TRUE(bound.IsAbove(0, Counts{16}, 0));     // 16 and then nothing more to pay
    EXPECT_FALSE(bound.IsAbove(0, Counts{10}, 300));  // 10, 10 and 10
    EXPECT_TRUE(bound.IsAbove(0, Counts{9}, 350));
}

}  // namespace
