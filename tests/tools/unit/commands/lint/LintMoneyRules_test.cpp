#include "LintOf.h"

namespace qxmix {
namespace {

TEST(LintQX601, FindsNegativeExponents) {
    EXPECT_EQ(Said(LintOf("CHF:50x10").Exponent(-2), "QX601"),
              (Lines{"/exponent: the remainder subtracts whole CHF from units of 0.01 CHF"}));
    EXPECT_EQ(Said(LintOf("CHF:50x10").Exponent(0), "QX601"), Lines{});
}

TEST(LintQX602, FindsMixNineUnderANegativeExponent) {
    EXPECT_EQ(Said(LintOf("CHF:50x10").Exponent(-2).Mixes({1, 9}), "QX602"),
              (Lines{"/exponent: mix 9 does not rescale notes: it pays 10^2 times as much"}));
    EXPECT_EQ(Said(LintOf("CHF:50x10").Exponent(-2).Mixes({4}), "QX602"), Lines{});
    EXPECT_EQ(Said(LintOf("CHF:50x10").Exponent(2).Mixes({9}), "QX602"), Lines{});
}

TEST(LintQX603, FindsCoinsWithoutWorth) {
    LintOf lint = LintOf("CHF:50x10,20x10:coinDispenser").Exponent(-2);
    EXPECT_EQ(Said(lint, "QX603"),
              (Lines{"/cassettes/1/value: a coin without worth: the search counts it as 20 units "
                     "of 0.01 CHF"}));
    lint.dispenser.cassettes[1].worth = Money::Parse("0.20");
    EXPECT_EQ(Said(lint, "QX603"), Lines{});
    EXPECT_EQ(Said(LintOf("CHF:50x10,20x10:coinDispenser"), "QX603"), Lines{});
    EXPECT_EQ(Said(LintOf("CHF:5x10:coinCylinder,50x10,20x10:coinDispenser").Exponent(-1), "QX603"),
              (Lines{"/cassettes/0/value: a coin without worth: the search counts it as 5 units "
                     "of 0.1 CHF",
                     "/cassettes/2/value: a coin without worth: the search counts it as 20 units "
                     "of 0.1 CHF"}));
    EXPECT_EQ(Said(LintOf("CHF:50x10:coupon").Exponent(-2), "QX603"), Lines{});
    EXPECT_EQ(Said(LintOf("CHF:50x10:coinCylinder").Exponent(2), "QX603"), Lines{});
}

TEST(LintQX604, FindsNumbersThatWrap) {
    EXPECT_EQ(Said(LintOf("CHF:42949672x10").Exponent(-2), "QX604"), Lines{});
    EXPECT_EQ(Said(LintOf("CHF:42949673x10").Exponent(-2), "QX604"),
              (Lines{"/cassettes/0/value: 42949673 times 10^2 wraps at 2^32: another amount is "
                     "paid"}));
    EXPECT_EQ(Said(LintOf("CHF:42949673x10:coinCylinder").Exponent(-2), "QX604"), Lines{});
    EXPECT_EQ(Said(LintOf("CHF:5x10,42949673x10").Exponent(-2).Mixes({1, 9}), "QX604"),
              (Lines{"/cassettes/1/value: 42949673 times 10^2 wraps at 2^32: another amount is "
                     "paid (mix 1)"}));
    EXPECT_EQ(Said(LintOf("CHF:4294967295x10").Exponent(0), "QX604"), Lines{});
    EXPECT_EQ(Said(LintOf("CHF:429496730x10").Exponent(-1), "QX604").size(), 1U);
    EXPECT_EQ(Said(LintOf("CHF:429496729x10").Exponent(-1), "QX604"), Lines{});
    LintOf lint = LintOf("EUR:50x10").Exponent(3);
    lint.dispenser.amounts["EUR"].max = 4294967;
    EXPECT_EQ(Said(lint, "QX604"), Lines{});
    lint.dispenser.amounts["EUR"].max = 4294968;
    EXPECT_EQ(Said(lint, "QX604"),
              (Lines{"/amounts/max: 4294968 times 10^3 wraps at 2^32: another amount is paid"}));
}

TEST(LintQX605, FindsPartialAmounts) {
    EXPECT_EQ(Said(LintOf("EUR:50x10").Partial(), "QX605"),
              (Lines{"/partial: remainder 0 can mean a reduced amount"}));
    EXPECT_EQ(Said(LintOf("EUR:50x10"), "QX605"), Lines{});
}

}  // namespace
}  // namespace qxmix
