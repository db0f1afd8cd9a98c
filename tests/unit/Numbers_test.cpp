#include "Numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

struct Truncation {
    double value;
    std::uint32_t expected;
};

TEST(TruncateToU32, TakesWholePartModulo2To32) {
    constexpr double k2To32 = 4294967296.0;
    const Truncation cases[] = {
        {0.0, 0},
        {-0.0, 0},
        {0.99999, 0},
        {1.0, 1},
        {1.99999, 1},
        {40.5, 40},
        {2147483647.9, 0x7FFFFFFF},
        {2147483648.0, 0x80000000},
        {4294967295.0, 0xFFFFFFFF},
        {4294967295.9, 0xFFFFFFFF},
        {k2To32, 0},
        {k2To32 + 5, 5},
        {3 * k2To32 + 7.5, 7},
        {9007199254740991.0, 0xFFFFFFFF},                          // 2^53 - 1
        {9007199254740992.0, 0},                                   // 2^53
        {9007199254740994.0, 2},                                   // 2^53 + 2
        {18014398509481988.0, 4},                                  // 2^54 + 4
        {std::ldexp(1.0 + std::ldexp(1.0, -52), 83), 0x80000000},  // its last bit is worth 2^31
        {std::ldexp(1.0 + std::ldexp(1.0, -52), 84), 0},           // and here 2^32
        {1e300, 0},
        {-0.5, 0},
        {-1.0, 0xFFFFFFFF},
        {-1.9, 0xFFFFFFFF},
        {-k2To32 - 3, 0xFFFFFFFD},
    };
    for (const Truncation& one : cases) {
        EXPECT_EQ(TruncateToU32(one.value), one.expected) << one.value;
    }
}

TEST(TruncateToU32, GivesZeroForWhatIsNoNumberToTruncate) {
    using Limits = std::numeric_limits<double>;
    for (const double value : {Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN(),
                               Limits::denorm_min(), Limits::min(), Limits::max()}) {
        EXPECT_EQ(TruncateToU32(value), 0U) << value;
    }
}

TEST(ScaleByPowerOfTen, IsExactWhileProductFits) {
    std::uint32_t power = 1;
    for (int exponent = 0; exponent <= 9; ++exponent, power *= 10) {
        EXPECT_EQ(ScaleByPowerOfTen(1, exponent), power);
        EXPECT_EQ(ScaleByPowerOfTen(0, exponent), 0U);
        EXPECT_EQ(ScaleByPowerOfTen(4, exponent), exponent < 9 ? 4 * power : 4000000000U);
    }
}

TEST(ScaleByPowerOfTen, WrapsProductsFrom2To32Up) {
    EXPECT_EQ(ScaleByPowerOfTen(1, 10), 1410065408U);          // 10^10 - 2 * 2^32
    EXPECT_EQ(ScaleByPowerOfTen(5, 9), 705032704U);            // 5 * 10^9 - 2^32
    EXPECT_EQ(ScaleByPowerOfTen(0xFFFFFFFF, 1), 4294967286U);  // 10 * (2^32 - 1)
    EXPECT_EQ(ScaleByPowerOfTen(0xFFFFFFFF, 2), 4294967196U);
}

TEST(ScaleByPowerOfTen, HasEveryPowerOfTenThatADoubleHolds) {
    std::uint32_t power = 1;  // modulo 2^32
    for (int exponent = 0; exponent <= 22; ++exponent) {
        EXPECT_EQ(ScaleByPowerOfTen(1, exponent), power) << exponent;
        power *= 10;
    }
    EXPECT_EQ(ScaleByPowerOfTen(1, 23), 4127195136U);  // the doubles nearest to these
    EXPECT_EQ(ScaleByPowerOfTen(1, 24), 2684354560U);
    EXPECT_EQ(ScaleByPowerOfTen(1, 25), 2147483648U);
}

TEST(ScaleByPowerOfTen, LosesWhatDoublesCannotHold) {
    EXPECT_EQ(ScaleByPowerOfTen(0xFFFFFFFF, 9), 3294967296U);   // still exact
    EXPECT_EQ(ScaleByPowerOfTen(0xFFFFFFFF, 10), 2884902912U);  // exact would be 2884901888
    EXPECT_EQ(ScaleByPowerOfTen(0xFFFFFFFF, 14), 4026531840U);  // exact would be 4018520064
    EXPECT_EQ(ScaleByPowerOfTen(0xFFFFFFFF, 16), 0U);           // exact would be 2420047872
    // 10^22 is the last power that a double holds exactly; 10^23 is 8388608 short.
    EXPECT_EQ(ScaleByPowerOfTen(1, 22), 2990538752U);
    EXPECT_EQ(ScaleByPowerOfTen(1, 23), 4127195136U);
    EXPECT_EQ(ScaleByPowerOfTen(1, 24), 2684354560U);
    EXPECT_EQ(ScaleByPowerOfTen(1, 25), 2147483648U);
}

TEST(ScaleByPowerOfTen, LeavesNothingFrom26On) {
    for (const int exponent : {26, 27, 30, 100, 308, 309, 1000, 32767, 32768}) {
        for (const std::uint32_t value : {0U, 1U, 7U, 0x80000000U, 0xFFFFFFFFU}) {
            EXPECT_EQ(ScaleByPowerOfTen(value, exponent), 0U) << value << " E" << exponent;
        }
    }
}

TEST(AsSigned, ReadsUpperHalfAsNegative) {
    EXPECT_EQ(AsSigned(0), 0);
    EXPECT_EQ(AsSigned(0x7FFFFFFF), 2147483647);
    EXPECT_EQ(AsSigned(0x80000000), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(AsSigned(0xFFFFFFFF), -1);
}

TEST(SingleOf, RoundsTo24BitsHalfToEven) {
    EXPECT_EQ(SingleOf(16777216), 16777216.0F);
    EXPECT_EQ(static_cast<double>(SingleOf(16777217)), 16777216.0);
    EXPECT_EQ(static_cast<double>(SingleOf(16777219)), 16777220.0);
    EXPECT_EQ(static_cast<double>(SingleOf(0xFFFFFFFF)), 4294967296.0);
}

}  // namespace
