#include "LintOf.h"

namespace qxmix {
namespace {

TEST(LintQX201, FindsFullCassettesThatCount) {
    EXPECT_EQ(Said(LintOf("EUR:50x400:full,20x9:high,10x0:full"), "QX201"),
              (Lines{"/cassettes/0/status: 50 EUR is full: its 400 are counted, not given",
                     "/cassettes/1/status: 20 EUR is high: its 9 are counted, not given"}));
    EXPECT_EQ(Said(LintOf("EUR:50x400,20x9:low"), "QX201"), Lines{});
    EXPECT_EQ(Said(LintOf("EUR:50x400,50x0:full,50x1:high"), "QX201"),
              (Lines{"/cassettes/2/status: 50 EUR is high: its 1 are counted, not given"}))
        << "of one unit those that hold any";
}

TEST(LintQX201, LeavesOutUnitsThatAreNotUsedAtAll) {
    EXPECT_EQ(Said(LintOf("EUR:50x99:full,20x900").Mixes({6}), "QX201"), Lines{});
    EXPECT_EQ(
        Said(LintOf("EUR:50x99:full,20x900").Mixes({1, 6}), "QX201"),
        (Lines{"/cassettes/0/status: 50 EUR is full: its 99 are counted, not given (mix 1)"}));
}

TEST(LintQX202, FindsManipulatedCassettesThatComeFirst) {
    EXPECT_EQ(Said(LintOf("EUR:50x400:manipulated,20x400"), "QX202"),
              (Lines{"/cassettes/0/status: 50 EUR is manipulated: its 400 are counted, never "
                     "given"}));
    EXPECT_EQ(Said(LintOf("EUR:50x400,50x400:manipulated"), "QX202"), Lines{}) << "not the first";
    EXPECT_EQ(Said(LintOf("EUR:50x400:manipulated,20x400").Mixes({9}), "QX202"), Lines{});
    EXPECT_EQ(Said(LintOf("EUR:50x0:manipulated,50x400"), "QX202"), Lines{}) << "nothing counts";
    EXPECT_EQ(Said(LintOf("EUR:50x1:manipulated,50x400"), "QX202").size(), 1U);
    EXPECT_EQ(Said(LintOf("EUR:50x400:noReference,50x400"), "QX202"), Lines{}) << "QX203";
}

TEST(LintQX202, FindsStatusesThatNobodyKnows) {
    LintOf lint("EUR:50x400,20x400");
    lint.dispenser.cassettes[0].status = 10;
    EXPECT_EQ(Said(lint, "QX202"), (Lines{"/cassettes/0/status: 50 EUR is of status 10: its 400 "
                                          "are counted, never given"}));
}

TEST(LintQX203, FindsUnusableCassettesThatComeFirst) {
    for (const char* const status : {"empty", "inoperative", "missing", "noValue", "noReference"}) {
        const std::string text = std::string("EUR:20x30:") + status + ",20x400";
        EXPECT_EQ(Said(LintOf(text.c_str()), "QX203"),
                  (Lines{std::string("/cassettes/0/count: 20 EUR is ") + status +
                         ", but being first its 30 count"}));
    }
    EXPECT_EQ(Said(LintOf("EUR:20x400,20x30:empty"), "QX203"), Lines{}) << "not the first";
    EXPECT_EQ(Said(LintOf("EUR:20x0:empty,20x400"), "QX203"), Lines{}) << "nothing counts";
    EXPECT_EQ(Said(LintOf("EUR:50x9,20x30:empty"), "QX203"), Lines{}) << "passed over";
    EXPECT_EQ(Said(LintOf("EUR:20x0:empty,20x400"), "QX203"), Lines{});
    EXPECT_EQ(Said(LintOf("EUR:20x1:empty,20x400"), "QX203").size(), 1U);
    for (const char* const status : {"ok", "full", "high", "low", "manipulated"}) {
        EXPECT_EQ(Said(LintOf(("EUR:20x30:" + std::string(status) + ",20x400").c_str()), "QX203"),
                  Lines{})
            << status;
    }
}

TEST(LintQX204, TellsHowACouponOfNoValueRefusesEverything) {
    EXPECT_EQ(Said(LintOf("EUR:0x10:coupon,20x100"), "QX204"),
              (Lines{"/cassettes/0/value: worth nothing: every amount is refused, code 971A2"}));
    EXPECT_EQ(Said(LintOf("EUR:20x100,0x10:coupon"), "QX204").size(), 1U) << "the second";
    EXPECT_EQ(Said(LintOf("EUR:0x10:coupon").Mixes({2}), "QX204"),
              (Lines{"/cassettes/0/value: worth nothing: every amount is refused, without a "
                     "code"}));
    EXPECT_EQ(Said(LintOf("EUR:0x10:coupon,1x9,2x9,5x9,10x9,20x9"), "QX204"),
              (Lines{"/cassettes/0/value: worth nothing: every amount is refused with -315"}));
    EXPECT_EQ(Said(LintOf("EUR:0x10:coupon,1x9,2x9,5x9,10x9"), "QX204"),
              (Lines{"/cassettes/0/value: worth nothing: every amount is refused, code 971A2"}))
        << "five can be searched";
    EXPECT_EQ(Said(LintOf("EUR:20x100,0x10:coupon").Mixes({1, 2}), "QX204"),
              (Lines{"/cassettes/1/value: worth nothing: every amount is refused, code 971A2"}))
        << "not the first that is searched";
    EXPECT_EQ(Said(LintOf("EUR:0x10:coupon").Mixes({1, 2}), "QX204"),
              (Lines{"/cassettes/0/value: worth nothing: every amount is refused, code 971A2 (mix "
                     "1)",
                     "/cassettes/0/value: worth nothing: every amount is refused, without a code "
                     "(mix 2)"}));
    EXPECT_EQ(Said(LintOf("EUR:0x10:coupon,0x9:coupon"), "QX204").size(), 1U)
        << "one unit, told at its first cassette";
    EXPECT_EQ(Said(LintOf("EUR:5x10:coupon,20x100"), "QX204"), Lines{});
    EXPECT_EQ(Said(LintOf("EUR:0x0:coupon,20x100"), "QX204"), Lines{}) << "passed over";
}

TEST(LintQX205, FindsUnitsThatAMixPassesOver) {
    EXPECT_EQ(Said(LintOf("EUR:50x400:low,20x60").Mixes({1, 5, 6}), "QX205"),
              (Lines{"/cassettes/0/status: 50 EUR is passed over: it is low (mix 5)",
                     "/cassettes/1/count: 20 EUR is passed over: it counts 60, the minimum is 100 "
                     "(mix 6)"}));
    EXPECT_EQ(Said(LintOf("EUR:50x400:low,20x101").Mixes({1, 6}), "QX205"), Lines{});
    EXPECT_EQ(Said(LintOf("EUR:50x0,20x101").Mixes({6}), "QX205"), Lines{}) << "nothing to take";
    EXPECT_EQ(Said(LintOf("EUR:50x100,20x100").Mixes({6}), "QX205").size(), 2U);
    EXPECT_EQ(Said(LintOf("EUR:50x101,20x101").Mixes({6}), "QX205"), Lines{});
    EXPECT_EQ(Said(LintOf("EUR:50x9,USD50x9:low,20x9:empty").Mixes({5}), "QX205"), Lines{})
        << "no filling helps the one, and the other is not low";
    const LintOf low("EUR:50x400:low,20x60");
    EXPECT_EQ(LintOf(low).Mixes({5}).Findings("QX205").front().advice, "refill");
    EXPECT_NE(LintOf(low).Mixes({6}).Findings("QX205").back().advice, "refill");
}

TEST(LintQX206, FindsSixDifferentNotes) {
    const LintOf six("EUR:200x9,100x9,50x9,20x9,10x9,5x9");
    EXPECT_EQ(Said(LintOf(six).Amounts({80, 85}), "QX206"),
              (Lines{"/cassettes: six different notes: mix 1 returns -315, no cassette fault, on 2 "
                     "amounts: 80, 85"}));
    EXPECT_EQ(Said(LintOf("EUR:200x9,100x9,50x9,20x9,10x9,10x9"), "QX206"), Lines{});
}

}  // namespace
}  // namespace qxmix
