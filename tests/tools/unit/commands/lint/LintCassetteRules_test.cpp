#include "LintOf.h"

namespace qxmix {
namespace {

TEST(LintQX101, FindsPositionsThatAreNotThePlace) {
    EXPECT_EQ(Said(LintOf("EUR:50x10,20x10").Position(0, 1).Position(1, 0), "QX101"),
              (Lines{"/cassettes/0/position: items go to slot 1, the remainder counts them at "
                     "cassette 1's value",
                     "/cassettes/1/position: items go to slot 0, the remainder counts them at "
                     "cassette 0's value"}));
    EXPECT_EQ(Said(LintOf("EUR:50x10,20x10").Position(1, 5), "QX101"),
              (Lines{"/cassettes/1/position: items go to slot 5, the remainder does not count "
                     "them"}));
    EXPECT_EQ(Said(LintOf("EUR:50x10,20x10").Position(1, 2), "QX101"),
              (Lines{"/cassettes/1/position: items go to slot 2, the remainder does not count "
                     "them"}));
    EXPECT_EQ(Said(LintOf("EUR:50x10,20x10"), "QX101"), Lines{});
    EXPECT_EQ(Said(LintOf("EUR:50x10,20x10").Position(1, 6), "QX101"), Lines{}) << "QX102";
}

TEST(LintQX101, AdvisesToSortThePositionsThatCanBeSorted) {
    const auto advice = [](std::uint16_t first, std::uint16_t second) {
        return LintOf("EUR:50x10,20x10")
            .Position(0, first)
            .Position(1, second)
            .Findings("QX101")
            .front()
            .advice;
    };
    EXPECT_EQ(advice(1, 0), "list cassettes by position");
    EXPECT_EQ(advice(1, 1), "use 0 to 5 once each, from 0 on");
    EXPECT_EQ(advice(1, 2), "use 0 to 5 once each, from 0 on");
    EXPECT_EQ(advice(0, 2), "use 0 to 5 once each, from 0 on");
    EXPECT_EQ(advice(2, 0), "use 0 to 5 once each, from 0 on");
}

TEST(LintQX102, FindsPositionsThatAreNoneAndThoseUsedTwice) {
    EXPECT_EQ(Said(LintOf("EUR:50x10,20x10").Position(1, 6), "QX102"),
              (Lines{"/cassettes/1/position: there is no slot 6: it never receives an item"}));
    EXPECT_EQ(Said(LintOf("EUR:50x10,20x10").Position(1, 0), "QX102"),
              (Lines{"/cassettes/1/position: slot 0 is written twice, the later replaces"}));
    EXPECT_EQ(Said(LintOf("EUR:50x10,20x10").Position(1, 5), "QX102"), Lines{});
    EXPECT_EQ(Said(LintOf("EUR:50x10,20x10").Position(0, 65535), "QX102"),
              (Lines{"/cassettes/0/position: there is no slot 65535: it never receives an item"}));
    EXPECT_EQ(Said(LintOf("EUR:50x10,20x10,10x10").Position(0, 6).Position(1, 6), "QX102"),
              (Lines{"/cassettes/0/position: there is no slot 6: it never receives an item",
                     "/cassettes/1/position: there is no slot 6: it never receives an item"}));
    EXPECT_EQ(Said(LintOf("EUR:50x10,20x10,10x10").Position(1, 0).Position(2, 0), "QX102"),
              (Lines{"/cassettes/1/position: slot 0 is written twice, the later replaces",
                     "/cassettes/2/position: slot 0 is written twice, the later replaces"}));
}

TEST(LintQX103, FindsOneNoteOfTwoTypes) {
    EXPECT_EQ(Said(LintOf("EUR:50x10,50x10:coupon"), "QX103"),
              (Lines{"/cassettes/1/type: 50 EUR is coupon here, billCassette in cassette 0: two "
                     "units instead of one"}));
    EXPECT_EQ(Said(LintOf("EUR:50x10,50x10,20x10:coupon,USD50x10:coupon"), "QX103"), Lines{});
}

TEST(LintQX103, TakesWhatDiffersInAnythingElseForAnotherNote) {
    const auto said = [](const char* dispenser) { return Said(LintOf(dispenser), "QX103"); };
    EXPECT_EQ(said("EUR:50x10,20x10,50x10:coupon"),
              (Lines{"/cassettes/2/type: 50 EUR is coupon here, billCassette in cassette 0: two "
                     "units instead of one"}));
    EXPECT_EQ(said("EUR:50x10,50x10,50x10:coupon,50x10:coupon"),
              (Lines{"/cassettes/2/type: 50 EUR is coupon here, billCassette in cassette 0: two "
                     "units instead of one",
                     "/cassettes/3/type: 50 EUR is coupon here, billCassette in cassette 0: two "
                     "units instead of one"}));
    EXPECT_EQ(said("EUR:50x10,USD50x10:coupon"), Lines{}) << "currency";
    EXPECT_EQ(said("EUR:50x10,20x10:coupon"), Lines{}) << "value";
    LintOf worth("EUR:50x10,50x10:coupon");
    worth.dispenser.cassettes[1].worth = Money::Parse("49");
    EXPECT_EQ(Said(worth, "QX103"), Lines{}) << "worth";
}

TEST(LintQX103, TellsMoneyApartFromUnitsOfTheAmount) {
    EXPECT_EQ(Said(LintOf("EUR:50x10,50x10:coinDispenser"), "QX103").size(), 1U);
    EXPECT_EQ(Said(LintOf("EUR:50x10,50x10:coinDispenser").Exponent(-2), "QX103"), Lines{})
        << "50 and 0.50";
    EXPECT_EQ(
        Said(LintOf("EUR:50x10:coinCylinder,50x10:coinDispenser").Exponent(-2), "QX103").size(),
        1U);
    EXPECT_EQ(Said(LintOf("EUR:50x10,50x10:rejectCassette"), "QX103"), Lines{}) << "not drawn from";
    EXPECT_EQ(Said(LintOf("EUR:50x10:rejectCassette,50x10"), "QX103"), Lines{});
    EXPECT_EQ(Said(LintOf("EUR:50x10:recycling,50x10").Mixes({1, 9}), "QX103").size(), 1U)
        << "mix 9 draws from both";
}

TEST(LintQX104, FindsOtherCurrencies) {
    const LintOf some("EUR:50x10,USD20x10");
    EXPECT_EQ(Said(some, "QX104"),
              (Lines{"/cassettes/1/currency: USD is not EUR: passed over in silence"}));
    EXPECT_EQ(some.Findings("QX104").front().severity, Severity::Note);
    EXPECT_EQ(LintOf("EUR:USD20x10").Findings("QX104").front().severity, Severity::Error);
    EXPECT_EQ(Said(LintOf("EUR:50x10"), "QX104"), Lines{});
}

TEST(LintQX105, FindsWhatIsNeverDrawnFrom) {
    EXPECT_EQ(Said(LintOf("EUR:50x200,20x200:rejectCassette"), "QX105"),
              (Lines{"/cassettes/1/type: rejectCassette is never drawn from"}));
    EXPECT_EQ(Said(LintOf("EUR:50x200,20x2147483648"), "QX105"),
              (Lines{"/cassettes/1/count: 2147483648 reads as negative: never drawn from"}));
    EXPECT_EQ(Said(LintOf("EUR:50x200,0x200"), "QX105"),
              (Lines{"/cassettes/1/value: worth nothing: never drawn from"}));
    EXPECT_EQ(Said(LintOf("EUR:50x0,20x200"), "QX105"), Lines{}) << "it is to be filled";
    EXPECT_EQ(Said(LintOf("EUR:50x200,20x2147483647,0x200:coupon,2x9:coinCylinder"), "QX105"),
              Lines{});
}

TEST(LintQX105, FindsCountsThatWrapWithTheRestOfTheirUnit) {
    // 4294967295 and 11 are 10.
    EXPECT_EQ(Said(LintOf("EUR:50x4294967295,50x11"), "QX105"),
              (Lines{"/cassettes/0/count: 4294967295 wraps with what the others of its unit hold: "
                     "its unit counts less"}));
    EXPECT_EQ(Said(LintOf("EUR:50x4294967295,50x11,20x9"), "QX105").size(), 1U);
    EXPECT_EQ(Said(LintOf("EUR:50x9,20x4294967295,20x11"), "QX105"),
              (Lines{"/cassettes/1/count: 4294967295 wraps with what the others of its unit hold: "
                     "its unit counts less"}));
    EXPECT_EQ(Said(LintOf("EUR:50x2147483647,50x11"), "QX105"), Lines{})
        << "none of them reads as negative by itself";
}

TEST(LintQX105, KnowsThatMixNineIsDifferent) {
    const LintOf recycling("EUR:50x200:recycling,20x200");
    EXPECT_EQ(Said(LintOf(recycling).Mixes({1, 9}), "QX105"),
              (Lines{"/cassettes/0/type: recycling is never drawn from (mix 1)"}));
    EXPECT_EQ(Said(LintOf(recycling).Mixes({9}), "QX105"), Lines{});
    EXPECT_EQ(Said(LintOf("EUR:50x2147483648,20x200").Mixes({9}), "QX105"), Lines{});
}

}  // namespace
}  // namespace qxmix
