#include "commands/fill/ServedShare.h"

#include <gtest/gtest.h>

namespace qxmix {
namespace {

TEST(ServedShare, IsReadAsAPercentage) {
    const auto share = ParsePercent("99.5");
    ASSERT_TRUE(share);
    EXPECT_TRUE((ServedShare{199, 200}).Reaches(*share));
    EXPECT_FALSE((ServedShare{994, 1000}).Reaches(*share));
    EXPECT_TRUE(ParsePercent("100"));
    EXPECT_TRUE(ParsePercent("0.001"));
    for (const char* const bad : {"0", "100.001", "99.9995", "-1", "99,5", "", "all", "101"}) {
        EXPECT_FALSE(ParsePercent(bad)) << bad;
    }
}

TEST(ServedShare, KnowsHowManyMayBeLeftUnserved) {
    EXPECT_EQ((ServedShare{995, 1000}).MostUnserved(840), 4U);
    EXPECT_EQ((ServedShare{995, 1000}).MostUnserved(200), 1U);
    EXPECT_EQ((ServedShare{995, 1000}).MostUnserved(199), 0U);
    EXPECT_EQ((ServedShare{1, 1}).MostUnserved(840), 0U);
}

TEST(ServedShare, IsNeverShownAsMoreThanItIs) {
    EXPECT_EQ(PercentText({840, 840}), "100.0");
    EXPECT_EQ(PercentText({839, 840}), "99.88");
    EXPECT_EQ(PercentText({99999, 100000}), "99.99");
    EXPECT_EQ(PercentText({1, 2}), "50.0");
    EXPECT_EQ(PercentText({0, 3}), "0.0");
}

}  // namespace
}  // namespace qxmix
