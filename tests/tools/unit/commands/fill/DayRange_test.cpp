#include "commands/fill/DayRange.h"

#include <gtest/gtest.h>

namespace qxmix {
namespace {

TEST(DayRange, IsReadFromTheShorterToTheLonger) {
    const auto range = ParseDayRange("2-14");
    ASSERT_TRUE(range);
    EXPECT_EQ(range->from, 2U);
    EXPECT_EQ(range->to, 14U);
    EXPECT_TRUE(ParseDayRange("3-3"));
    EXPECT_TRUE(ParseDayRange("1-3660"));
}

TEST(DayRange, IsNothingElse) {
    for (const char* const bad :
         {"", "-", "3", "0-3", "5-3", "1-3661", "-3", "3-", "1-2-3", "1 - 3", "-1-3", "1,3"}) {
        EXPECT_FALSE(ParseDayRange(bad)) << bad;
    }
}

}  // namespace
}  // namespace qxmix
