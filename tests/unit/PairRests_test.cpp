#include "PairRests.h"

#include <gtest/gtest.h>

#include <numeric>
#include <set>

namespace {

using Rests = std::set<std::uint64_t>;

constexpr std::uint64_t kMostRest = 60;

SearchUnits LastTwo(const std::array<std::uint32_t, 2>& values,
                    const std::array<std::uint32_t, 2>& counts) {
    SearchUnits units{MixRequest{}, LcuTable{}};
    units.n = 3;
    units.values = {1, values[0], values[1]};
    units.counts = {1, counts[0], counts[1]};
    return units;
}

Rests PlainRests(const SearchUnits& units) {
    Rests rests;
    for (std::int64_t inner = -1000; inner <= std::int64_t{units.counts[1]}; ++inner) {
        for (std::int64_t last = 0; last <= std::int64_t{units.counts[2]}; ++last) {
            const std::int64_t rest = inner * units.values[1] + last * units.values[2];
            if (rest >= 0 && rest <= std::int64_t{kMostRest}) {
                rests.insert(static_cast<std::uint64_t>(rest));
            }
        }
    }
    return rests;
}

Rests RestsOfSeries(const PairRests& pair) {
    Rests rests;
    for (std::uint64_t index = 0; index < pair.Number(); ++index) {
        const RestSeries series = pair.Series(index);
        for (std::uint64_t number = 0; number < series.number; ++number) {
            const std::uint64_t rest = series.first + number * pair.Distance();
            if (rest <= kMostRest) {
                rests.insert(rest);
            }
        }
    }
    return rests;
}

TEST(PairRests, AreWhatTheLastTwoUnitsPay) {
    unsigned byLast = 0;
    unsigned all = 0;
    for (std::uint32_t code = 0; code < 9 * 9 * 5 * 5; ++code) {
        const std::array<std::uint32_t, 2> values{code % 9 + 1, code / 9 % 9 + 1};
        const std::array<std::uint32_t, 2> counts{code / 81 % 5, code / 81 / 5};
        const SearchUnits units = LastTwo(values, counts);
        const PairRests pair(units, std::gcd(values[0], values[1]));
        ASSERT_EQ(PlainRests(units), RestsOfSeries(pair))
            << values[0] << " x " << counts[0] << ", " << values[1] << " x " << counts[1];
        ++all;
        byLast += values[0] != values[1] && pair.Distance() == values[0] ? 1 : 0;
    }
    EXPECT_LT(all / 10, byLast);
    EXPECT_LT(byLast, all - all / 10);
}

TEST(PairRests, ComeInFewSeriesWhateverTheCounts) {
    const auto numberOf = [](std::uint32_t inner, std::uint32_t last, std::uint32_t lastCount) {
        return PairRests(LastTwo({inner, last}, {1000, lastCount}), 1).Number();
    };
    EXPECT_EQ(2U, numberOf(2, 1, 0x7FFFFFFF));
    EXPECT_EQ(4U + 1 + 1, numberOf(1000000007, 1, 1999999999));
    EXPECT_EQ(65535U, numberOf(65537, 65535, 65534));
}

}  // namespace
