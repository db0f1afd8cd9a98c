#include "RestsBackwards.h"

#include <gtest/gtest.h>

namespace {

constexpr unsigned kBits = 5;
constexpr std::uint32_t kWords = 1U << kBits;

struct Steps {
    std::uint32_t value;
    std::uint32_t distance;
};

/// The same by going from line to line.
std::uint64_t
PlainLinesTo(const Steps& steps, const RestSeries& series, std::uint32_t rest, std::uint64_t most) {
    for (std::uint64_t lines = 0; lines < most; ++lines) {
        const std::uint64_t over = rest - series.first;
        if (rest >= series.first && over % steps.distance == 0 &&
            over / steps.distance < series.number) {
            return lines;
        }
        rest = (rest - steps.value) % kWords;
    }
    return most;
}

void CompareAllSeries(const Steps& steps) {
    const RestsBackwards<kBits> lines(steps.value, steps.distance);
    for (std::uint32_t rest = 0; rest < kWords; ++rest) {
        for (std::uint32_t first = 0; first <= kWords; first += 1 + rest % 3) {
            for (std::uint32_t number = 1; number <= kWords / steps.distance + 2; ++number) {
                const RestSeries series{first, number};
                const std::uint64_t most = (first + number) % 7 == 0 ? rest : 2 * kWords;
                ASSERT_EQ(PlainLinesTo(steps, series, rest, most),
                          lines.LinesTo(series, rest, most))
                    << "value " << steps.value << ", distance " << steps.distance << ", rest "
                    << rest << ", first " << first << ", number " << number;
            }
        }
    }
}

TEST(RestsBackwards, FindsTheNearestLineOfEverySeriesInWordsOfFiveBits) {
    for (std::uint32_t value = 1; value < kWords; ++value) {
        for (std::uint32_t distance = 1; distance < kWords; ++distance) {
            CompareAllSeries({value, distance});
        }
    }
}

TEST(RestsBackwards, GoesThroughACycleOf2To32) {
    // 3 * 0x55555555 = 2^32 - 1: so many times 3 below 1, the rest is 2.
    const RestsBackwards<32> byThree(3, 1);
    const std::uint64_t cycle = std::uint64_t{1} << 32U;
    EXPECT_EQ(0x55555555U, byThree.LinesTo({2, 1}, 1, cycle));
    EXPECT_EQ(0x55555555U, byThree.LinesTo({2, 1}, 1, 0x55555556));
    EXPECT_EQ(0x55555555U, byThree.LinesTo({2, 1}, 1, 0x55555555));
    EXPECT_EQ(0x55555554U, byThree.LinesTo({2, 1}, 1, 0x55555554));
    EXPECT_EQ(cycle - 1, byThree.LinesTo({4, 1}, 1, cycle));
}

TEST(RestsBackwards, FindsNothingOddAmongEvenRests) {
    const RestsBackwards<32> even(0x80000002, 500);
    EXPECT_EQ(77U, even.LinesTo({1, 1000000}, 2000, 77));
    EXPECT_EQ(0U, even.LinesTo({0, 1000000}, 2000, 77));
    // The value is a power of two, forwards or backwards: the one way or the other becomes nothing.
    const std::uint64_t cycle = std::uint64_t{1} << 32U;
    EXPECT_EQ(cycle, RestsBackwards<32>(4, 1).LinesTo({2, 1}, 1, cycle));
    EXPECT_EQ(cycle, RestsBackwards<32>(0xFFFFFFFC, 1).LinesTo({2, 1}, 1, cycle));
}

}  // namespace
