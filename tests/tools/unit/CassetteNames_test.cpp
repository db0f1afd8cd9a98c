#include "dispenser/CassetteNames.h"

#include "dispenser/InlineDispenser.h"

#include <gtest/gtest.h>

namespace qxmix {
namespace {

TEST(CassetteNames, StandInColumns) {
    Dispenser dispenser = ReadInlineDispenser("EUR:100x1,5x1,USD20x1,7x1:coinDispenser");
    dispenser.cassettes[1].label = "lobby";
    dispenser.cassettes[3].worth = Money::Parse("0.07");
    const CassetteNames names(dispenser);
    EXPECT_EQ(names.LongestLabel(), 5U);
    EXPECT_EQ(names.Text(0, 5), "0        100 EUR");
    EXPECT_EQ(names.Text(1, 5), "lobby      5 EUR");
    EXPECT_EQ(names.Text(2, 5), "2         20 USD");
    EXPECT_EQ(names.Text(3, 5), "3       0.07 EUR");
    EXPECT_EQ(names.Text(1, 3).size(), 14U) << "cut";
}

}  // namespace
}  // namespace qxmix
