#include <gtest/gtest.h>

#include <limits>

#include "Arithmetic.h"

namespace reference {
namespace {

TEST(ReferenceToU32, CutsOffTheFractionAndWraps) {
    EXPECT_EQ(0U, ToU32(0.0));
    EXPECT_EQ(2U, ToU32(2.999));
    EXPECT_EQ(4294967295U, ToU32(4294967295.5));
    EXPECT_EQ(0U, ToU32(4294967296.0));
    EXPECT_EQ(1410065408U, ToU32(1e10));
    EXPECT_EQ(4294967295U, ToU32(-1.5));
}

TEST(ReferenceToU32, GivesZeroForWhatIsNoFiniteNumber) {
    EXPECT_EQ(0U, ToU32(std::numeric_limits<double>::infinity()));
    EXPECT_EQ(0U, ToU32(-std::numeric_limits<double>::infinity()));
    EXPECT_EQ(0U, ToU32(std::numeric_limits<double>::quiet_NaN()));
}

TEST(ReferencePowerOfTen, IsTheNearestDouble) {
    EXPECT_EQ(1.0, PowerOfTen(0));
    EXPECT_EQ(100.0, PowerOfTen(2));
    EXPECT_EQ(1e22, PowerOfTen(22));
    EXPECT_EQ(1e23, PowerOfTen(23));
    EXPECT_EQ(1e25, PowerOfTen(25));
    EXPECT_EQ(1e308, PowerOfTen(308));
    EXPECT_EQ(std::numeric_limits<double>::infinity(), PowerOfTen(309));
    EXPECT_EQ(std::numeric_limits<double>::infinity(), PowerOfTen(32768));
}

TEST(ReferenceAbsolute, TakesTheDistanceOfASignedNumber) {
    EXPECT_EQ(0U, Absolute(0));
    EXPECT_EQ(5U, Absolute(5));
    EXPECT_EQ(5U, Absolute(0U - 5U));
    EXPECT_EQ(0x7FFFFFFFU, Absolute(0x80000001));
    EXPECT_EQ(0x80000000U, Absolute(0x80000000));
}

}  // namespace
}  // namespace reference
