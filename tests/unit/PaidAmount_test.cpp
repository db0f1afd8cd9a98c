/// What a calculation makes of the amount: held to what the units hold, and what stays unpaid.

#include "Answer.h"
#include "MixPlans.h"
#include "Terminal.h"

namespace {

const Answer kNotDispensed = Refused(-306, "971A2");

using PaidAmount = TerminalTest;

TEST_F(PaidAmount, IsRefusedBeyondWhatTheUnitsHold) {
    const Request request = Request().Bill(100, 9).Amount(1000);
    EXPECT_EQ(Ask(request), kNotDispensed);
    EXPECT_EQ(Ask(Request(request).Partial(2)), kNotDispensed);
    EXPECT_EQ(Ask(Request(request).Partial(0x101)), kNotDispensed);
    EXPECT_EQ(Ask(Request(request).Amount(900)), Paid({9}));
}

TEST_F(PaidAmount, IsLoweredToWhatTheUnitsHoldWhenAllowed) {
    for (unsigned mix = 1; mix <= kMixCount; ++mix) {
        const Answer answer =
            Ask(Request().Mix(mix).Bill(100, 110).Limit(200).Amount(12000).Partial());
        EXPECT_EQ(answer, Paid({110})) << mix;
        EXPECT_EQ(answer.amount, 11000U) << mix;
    }
}

TEST_F(PaidAmount, IsNotLoweredWhenTheUnitsHoldIt) {
    const Answer answer = Ask(Request().Bill(100, 9).Amount(850).Partial());
    EXPECT_EQ(answer, Paid({8}).Rest(50));
    EXPECT_EQ(answer.amount, 850U);
}

TEST_F(PaidAmount, LeavesARemainderOf0WhenTheSearchFailsAfterwards) {
    Request six = Request().Amount(100).Partial();
    for (std::uint32_t value = 1; value <= 6; ++value) {
        six.Bill(value, 1);
    }
    const Answer lowered = Ask(six);
    EXPECT_EQ(lowered, Refused(-315, "97194").Rest(0));
    EXPECT_EQ(lowered.amount, 21U);
    EXPECT_EQ(Ask(six.Amount(20)), Refused(-315, "97194"));
}

TEST_F(PaidAmount, CountsCassettesThatGiveNothing) {
    // The full cassette comes first and gives nothing; ten items are missing.
    EXPECT_EQ(Ask(Request().Bill(10, 100).Status(1).Bill(10, 30).Amount(400)),
              Paid({0, 30}).Rest(100));
    // The first cassette of a unit counts even when it is empty.
    EXPECT_EQ(Ask(Request().Bill(10, 50).Status(4).Bill(10, 20).Amount(400)),
              Paid({0, 20}).Rest(200));
}

TEST_F(PaidAmount, DealsInTurnForMixes3And8) {
    for (const unsigned mix : {3U, 8U}) {
        EXPECT_EQ(Ask(Request().Mix(mix).Bill(10, 100).Bill(10, 100).Amount(50)), Paid({3, 2}));
    }
    for (const unsigned mix : {1U, 2U, 4U, 5U, 6U, 7U, 9U, 10U}) {
        EXPECT_EQ(Ask(Request().Mix(mix).Bill(10, 100).Bill(10, 100).Amount(50)), Paid({5, 0}));
    }
}

TEST_F(PaidAmount, EndsTheDealWhenNobodyCanGive) {
    EXPECT_EQ(Ask(Request().Mix(3).Bill(10, 9).Status(1).Amount(50)), Paid({}).Rest(50));
    EXPECT_EQ(Ask(Request().Mix(3).Bill(10, 9).Status(2).Bill(10, 2).Amount(50)),
              Paid({0, 2}).Rest(30));
}

TEST_F(PaidAmount, IsDrawnFromTheFullestCassetteFirst) {
    EXPECT_EQ(Ask(Request().Bill(10, 1).Bill(10, 3).Bill(10, 2).Amount(40)), Paid({0, 3, 1}));
}

TEST_F(PaidAmount, DecidesEqualCassettesByTheScanOfTheOrdering) {
    // 100, 300 and 300: all but mix 9 turn the last two round.
    const Request request = Request().Bill(10, 100).Bill(10, 300).Bill(10, 300).Amount(50);
    EXPECT_EQ(Ask(Request(request).Mix(1)), Paid({0, 0, 5}));
    EXPECT_EQ(Ask(Request(request).Mix(4)), Paid({0, 0, 5}));
    EXPECT_EQ(Ask(Request(request).Mix(9)), Paid({0, 5, 0}));
}

TEST_F(PaidAmount, IsValuedByThePlaceInTheRequestNotByThePosition) {
    // The fifty goes to slot 1, which the second cassette values at 20.
    EXPECT_EQ(Ask(Request().Bill(50, 9).At(1).Bill(20, 9).At(0).Amount(50)), Paid({0, 1}).Rest(30));
    // A slot without a cassette is worth nothing.
    EXPECT_EQ(Ask(Request().Bill(50, 9).At(5).Amount(50)), Paid({0, 0, 0, 0, 0, 1}).Rest(50));
}

TEST_F(PaidAmount, WrapsTheRemainder) {
    // One note of 20 lands in a slot that is valued at 50: 20 - 50.
    EXPECT_EQ(Ask(Request().Bill(50, 9).At(1).Bill(20, 9).At(0).Amount(20)),
              Paid({1}).Rest(0U - 30U));
    EXPECT_EQ(Ask(Request().Mix(4).Bill(50, 10).Bill(20, 10).Amount(30)),
              Paid({10, 4}).Rest(30U - 580U));
}

TEST_F(PaidAmount, CanBeFarMoreThanWasAsked) {
    EXPECT_EQ(Ask(Request().Mix(4).Bill(100, 400).Bill(50, 400).Bill(20, 400).Amount(110)),
              Paid({1, 400, 3}).Rest(110U - 20160U));
}

// The total of what the units hold is a sum in single precision, each step rounded to 24 bits.

TEST_F(PaidAmount, IsRefusedWhereTheRoundedTotalFallsShort) {
    // 16777217 rounds to 16777216, and with 1 more the sum rounds down to that again.
    const Request request = Request().Bill(16777217, 1).Bill(1, 1).Amount(16777218);
    EXPECT_EQ(Ask(request), kNotDispensed);
    EXPECT_EQ(Ask(Request(request).Amount(16777217)), Paid({1, 0}));
}

TEST_F(PaidAmount, IsLoweredToTheRoundedTotal) {
    const Answer answer = Ask(Request().Bill(16777217, 1).Bill(1, 1).Amount(16777218).Partial());
    EXPECT_EQ(answer.amount, 16777216U);
    EXPECT_EQ(answer, Paid({0, 1}).Rest(16777215));
}

TEST_F(PaidAmount, PassesWhereTheRoundedTotalIsTooLarge) {
    // 16777219 rounds up to 16777220, which is one more than there is.
    const Request request = Request().Bill(16777219, 1).Amount(16777220);
    const Answer answer = Ask(Request(request).Partial());
    EXPECT_EQ(answer, Paid({1}).Rest(1));
    EXPECT_EQ(answer.amount, 16777220U);
    EXPECT_EQ(Ask(request), kNotDispensed);
}

TEST_F(PaidAmount, PassesWhereTheAmountIsRoundedDown) {
    // 16777217 is asked and 16777216 is there, which is what the amount rounds to.
    const Answer answer = Ask(Request().Bill(16777216, 1).Amount(16777217).Partial());
    EXPECT_EQ(answer, Paid({1}).Rest(1));
    EXPECT_EQ(answer.amount, 16777217U);
}

TEST_F(PaidAmount, RoundsEachProductBeforeItIsAdded) {
    // 38 x 834845 and 39 x 723355 are 59934955, and the amount rounds to 59934956. The rounded
    // products add up to 59934952 only; added without that rounding they would make 59934956.
    EXPECT_EQ(Ask(Request().Bill(834845, 38).Bill(723355, 39).Limit(100).Amount(59934955)),
              kNotDispensed);
}

TEST_F(PaidAmount, RoundsTheSumAfterEachUnit) {
    EXPECT_EQ(Ask(Request()
                      .Bill(893398, 21)
                      .Bill(721673, 29)
                      .Bill(686256, 33)
                      .Limit(100)
                      .Amount(62336323)),
              kNotDispensed);
}

TEST_F(PaidAmount, AddsUpInTheOrderOfTheTable) {
    // From the smallest note, as in mix 10, the two ones together reach the next number.
    const Request request = Request().Bill(16777216, 1).Bill(1, 1).Coin(1, 1).Amount(16777218);
    EXPECT_EQ(Ask(Request(request).Mix(1)), kNotDispensed);
    EXPECT_EQ(Ask(Request(request).Mix(10)), Paid({1, 1, 1}));
}

TEST_F(PaidAmount, HoldsTotalsFarBeyond32Bits) {
    EXPECT_EQ(Ask(Request().Bill(0x7FFFFFFF, 0x7FFFFFFF).Amount(0x7FFFFFFF)), Paid({1}));
    EXPECT_EQ(Ask(Request().Mix(4).Bill(0xFFFFFFFF, 0x7FFFFFFF).Amount(0xFFFFFFFF)), Paid({1}));
}

}  // namespace
