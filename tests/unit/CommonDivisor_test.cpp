#include "CommonDivisor.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <numeric>

namespace {

/// Pairs around the ends of 32 bits, and some with a common divisor.
constexpr std::uint32_t kNumbers[] = {
    1,          2,          3,          5,          6,          20,         50,
    64,         1000,       65535,      65536,      0x7FFFFFFF, 0x80000000, 0x80000001,
    4200000002, 0xFFFFFFFA, 0xFFFFFFFB, 0xFFFFFFFE, 0xFFFFFFFF,
};

TEST(CommonDivisorOf, MakesTheDivisorFromTheFirstNumber) {
    for (const std::uint32_t value : kNumbers) {
        for (const std::uint32_t other : kNumbers) {
            SCOPED_TRACE(::testing::Message() << value << " and " << other);
            const CommonDivisor common = CommonDivisorOf(value, other);
            EXPECT_EQ(common.divisor, std::gcd(value, other));
            EXPECT_EQ(std::uint64_t{value} * common.factor % other, common.divisor % other);
            EXPECT_LT(common.factor, other / common.divisor);
        }
    }
}

}  // namespace
