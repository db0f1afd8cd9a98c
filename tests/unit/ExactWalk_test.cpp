#include "PlainLoops.h"

#include "ExactWalk.h"

#include <algorithm>
#include <numeric>

namespace {

/// Writes down what a walk shows; a combination of units of the table only.
struct Recorder : WalkRule {
    const SearchUnits& units;
    const ExactWalk& walk;
    Combinations met;
    std::size_t most = static_cast<std::size_t>(-1);

    Recorder(const SearchUnits& searched, const ExactWalk& exactWalk)
        : units(searched), walk(exactWalk) {}

    Verdict Visit(const Counts& combination) {
        if (walk.Regards(combination)) {
            Counts ofUnits{};
            std::copy_n(combination.begin(), units.n, ofUnits.begin());
            met.push_back(ofUnits);
        }
        return met.size() == most ? Verdict::EndSearch : Verdict::GoOn;
    }
};

template <Direction kDirection>
Combinations Met(const SearchUnits& units, const ExactWalk& walk) {
    Recorder recorder(units, walk);
    walk.Run<kDirection>(recorder);
    return recorder.met;
}

Combinations Reversed(Combinations combinations) {
    std::reverse(combinations.begin(), combinations.end());
    return combinations;
}

TEST(ExactWalk, MeetsExactlyTheExactCombinationsOfThePlainLoops) {
    ForEachSmallTable([](const SearchUnits& units) {
        EXPECT_EQ(Met<Direction::Downwards>(units, ExactWalk(units)), PlainLoops(units).Exact());
    });
}

TEST(ExactWalk, MeetsThemInReverseOrderUpwards) {
    ForEachSmallTable([](const SearchUnits& units) {
        EXPECT_EQ(Met<Direction::Upwards>(units, ExactWalk(units)),
                  Reversed(PlainLoops(units).Exact()));
    });
}

TEST(ExactWalk, MeetsExactlyTheShortCombinationsOfThePlainLoops) {
    ForEachSmallTable([](const SearchUnits& units) {
        EXPECT_EQ(Met<Direction::Downwards>(units, ExactWalk::WithShortfall(units)),
                  PlainLoops(units).Short());
    });
}

TEST(ExactWalk, MeetsShortCombinationsInReverseOrderUpwards) {
    ForEachSmallTable([](const SearchUnits& units) {
        EXPECT_EQ(Met<Direction::Upwards>(units, ExactWalk::WithShortfall(units)),
                  Reversed(PlainLoops(units).Short()));
    });
}

TEST(ExactWalk, NamesTheMostThatACombinationLeaves) {
    ForEachSmallTable([](const SearchUnits& units) {
        const ExactWalk walk = ExactWalk::WithShortfall(units);
        const PlainLoops plain(units);
        for (const std::uint32_t unpaid : plain.Unpaid()) {
            EXPECT_LE(unpaid, walk.MostShortfall() + units.amount % units.values[units.n - 1]);
        }
    });
}

/// Whether the last unit has a count that leaves the others an amount that their divisor divides.
bool LastUnitLeavesWhatTheOthersDivide(const SearchUnits& units) {
    std::uint32_t divisor = 0;
    for (unsigned unit = 0; unit + 1 < units.n; ++unit) {
        divisor = std::gcd(divisor, units.values[unit]);
    }
    const unsigned last = units.n - 1;
    for (std::uint32_t count = 0; count <= units.counts[last]; ++count) {
        const std::int64_t left = std::int64_t{units.amount} - count * units.values[last];
        if (left % divisor == 0) {
            return true;
        }
    }
    return false;
}

TEST(ExactWalk, KnowsWhereTheLastUnitHoldsTooFewForTheOthersToPayTheRest) {
    int tooFew = 0;
    ForEachSmallTable([&tooFew](const SearchUnits& units) {
        std::uint32_t held = 0;
        std::uint32_t divisor = 0;
        for (unsigned unit = 0; unit < units.n; ++unit) {
            held += units.values[unit] * units.counts[unit];
            divisor = std::gcd(divisor, units.values[unit]);
        }
        const bool reaches = units.amount <= held && units.amount % divisor == 0;
        const bool fits = LastUnitLeavesWhatTheOthersDivide(units);
        tooFew += reaches && !fits;
        EXPECT_EQ(ExactWalk(units).MayMakeAmount(), reaches && fits);
    });
    EXPECT_GT(tooFew, 1000);
}

TEST(ExactWalk, EndsAtOnceWhenItIsTold) {
    const Table table = Table().Bill(5, 3).Bill(4, 3).Bill(3, 3).Bill(2, 3).Bill(1, 3).Amount(20);
    const SearchUnits units = table.Units();
    const Combinations all = PlainLoops(units).Exact();
    ASSERT_GT(all.size(), 20U);
    const ExactWalk walk(units);
    for (std::size_t most = 1; most <= all.size(); ++most) {
        Recorder recorder(units, walk);
        recorder.most = most;
        walk.Run<Direction::Downwards>(recorder);
        EXPECT_EQ(recorder.met.size(), most);
    }
}

TEST(ExactWalk, WorksUpToTheLastNumbersBelow2To31) {
    constexpr std::uint32_t kMost = 0x7FFFFFFF;
    const Table table =
        Table().Bill(0x40000000, kMost).Bill(0x3FFFFFFF, kMost).Bill(1, 1).Amount(kMost);
    const SearchUnits units = table.Units();
    EXPECT_EQ(Met<Direction::Downwards>(units, ExactWalk(units)), PlainLoops(units).Exact());
    const Table primes = Table().Bill(2147483629, 1).Bill(2147483587, kMost).Amount(2147483587);
    const SearchUnits primeUnits = primes.Units();
    EXPECT_EQ(Met<Direction::Downwards>(primeUnits, ExactWalk(primeUnits)), (Combinations{{0, 1}}));
}

}  // namespace
