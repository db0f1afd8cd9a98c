#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "RequestBytes.h"

namespace reference {
namespace {

using Result = std::vector<std::uint32_t>;

constexpr std::uint32_t kHostsOwn = 0xCAFE;  // left in the remainder by the host

struct Call {
    Outcome outcome;
    RequestBytes request;
    Result notes;
};

Call Calculate(RequestBytes request, const Object& object = {}) {
    std::array<std::uint8_t, kResultBytes> result{};
    result.fill(0xA5);
    Call call;
    call.outcome =
        MixCalculate(object, request.Remainder(kHostsOwn).Bytes(), result.data(), 1000000);
    call.request = request;
    for (std::size_t k = 0; k < kMaxUnits; ++k) {
        call.notes.push_back(ReadU32(&result[4 * k]));
    }
    return call;
}

void ExpectFailure(const Call& call, std::int32_t returned, const std::string& lastCode) {
    ASSERT_TRUE(call.outcome.finished);
    EXPECT_EQ(returned, call.outcome.returned);
    EXPECT_EQ(lastCode, call.outcome.lastCode);
    EXPECT_EQ(Result(kMaxUnits, 0), call.notes);
}

void ExpectPaid(const Call& call, Result notes, std::uint32_t remainder) {
    ASSERT_TRUE(call.outcome.finished);
    EXPECT_EQ(0, call.outcome.returned);
    notes.resize(kMaxUnits, 0);
    EXPECT_EQ(notes, call.notes);
    EXPECT_EQ(remainder, call.request.RemainderNow());
}

TEST(ReferenceDriver, RefusesMixNumbersOutsideTheRange) {
    for (const std::uint16_t mix : std::vector<std::uint16_t>{0, 11, 65535}) {
        const Call call = Calculate(RequestBytes().Mix(mix).Exponent(2).Amount(3).Bill(50, 9));
        ExpectFailure(call, -304, "971A5");
        EXPECT_EQ(3U, call.request.AmountNow());
        EXPECT_EQ(kHostsOwn, call.request.RemainderNow());
    }
}

TEST(ReferenceDriver, FollowsTheRangeOfTheObjectWithinOneToTen) {
    Object object;
    object.first = 2;
    object.last = 3;
    ExpectFailure(Calculate(RequestBytes().Mix(1).Amount(50).Bill(50, 9), object), -304, "971A5");
    ExpectFailure(Calculate(RequestBytes().Mix(4).Amount(50).Bill(50, 9), object), -304, "971A5");
    ExpectPaid(Calculate(RequestBytes().Mix(2).Amount(50).Bill(50, 9), object), {1}, 0);
    object.first = 0;
    object.last = 65535;
    ExpectFailure(Calculate(RequestBytes().Mix(0).Amount(50).Bill(50, 9), object), -304, "971A5");
    ExpectFailure(Calculate(RequestBytes().Mix(11).Amount(50).Bill(50, 9), object), -304, "971A5");
}

TEST(ReferenceDriver, ScalesTheAmountByAPositiveExponentOnly) {
    const Call up = Calculate(RequestBytes().Exponent(2).Amount(3).Bill(100, 9));
    ExpectPaid(up, {3}, 0);
    EXPECT_EQ(300U, up.request.AmountNow());
    const Call down = Calculate(RequestBytes().Exponent(-2).Amount(3).Bill(100, 9));
    ExpectPaid(down, {}, 3);
    EXPECT_EQ(3U, down.request.AmountNow());
}

TEST(ReferenceDriver, ReportsTheRemainderInTheHostsOwnNoteValues) {
    // 40.00 in hundredths: two notes of 20, which count 40 against 4000.
    ExpectPaid(Calculate(RequestBytes().Exponent(-2).Amount(4000).Bill(20, 9)), {2}, 3960);
}

TEST(ReferenceDriver, ScalesToNothingByAnInfinitePower) {
    const Call call = Calculate(RequestBytes().Exponent(400).Amount(3).Bill(100, 9));
    ExpectPaid(call, {}, 0);
    EXPECT_EQ(0U, call.request.AmountNow());
}

TEST(ReferenceDriver, PaysNothingBelowTheSmallestNote) {
    for (const std::uint16_t mix : std::vector<std::uint16_t>{1, 2, 3, 5, 6, 7, 8, 10}) {
        const Call call = Calculate(RequestBytes().Mix(mix).Amount(10).Bill(50, 900).Bill(20, 900));
        ExpectPaid(call, {}, 10);
        EXPECT_EQ("", call.outcome.lastCode);
    }
    // Mixes 4 and 9 go on to their search, which takes 4294967295 fifties and 3 twenties.
    for (const std::uint16_t mix : std::vector<std::uint16_t>{4, 9}) {
        const Call call = Calculate(RequestBytes().Mix(mix).Amount(10).Bill(50, 900).Bill(20, 900));
        ExpectPaid(call, {900, 3}, 10U - 45060U);
    }
}

TEST(ReferenceDriver, ComparesStrictlyWithTheSmallestNote) {
    ExpectPaid(Calculate(RequestBytes().Amount(20).Bill(50, 9).Bill(20, 9)), {0, 1}, 0);
    ExpectPaid(Calculate(RequestBytes().Mix(10).Amount(20).Bill(50, 9).Bill(20, 9)), {0, 1}, 0);
}

TEST(ReferenceDriver, FailsOnAnEmptyTableForEveryMix) {
    for (std::uint16_t mix = 1; mix <= 10; ++mix) {
        const Call call = Calculate(RequestBytes().Mix(mix).Amount(0));
        ExpectFailure(call, -306, "971A2");
        EXPECT_EQ(kHostsOwn, call.request.RemainderNow());
    }
}

TEST(ReferenceDriver, LowersTheAmountToWhatTheUnitsHold) {
    const RequestBytes request = RequestBytes().Amount(1000).Bill(100, 9);
    const Call partial = Calculate(RequestBytes(request).Partial(1));
    ExpectPaid(partial, {9}, 0);
    EXPECT_EQ(900U, partial.request.AmountNow());
    for (const std::uint32_t flag : {0U, 2U, 0x10001U}) {
        const Call whole = Calculate(RequestBytes(request).Partial(flag));
        ExpectFailure(whole, -306, "971A2");
        EXPECT_EQ(1000U, whole.request.AmountNow());
        EXPECT_EQ(kHostsOwn, whole.request.RemainderNow());
    }
}

TEST(ReferenceDriver, LeavesARemainderOfZeroWhenALoweredAmountCannotBePaid) {
    const Call call = Calculate(RequestBytes().Partial(1).Amount(1000).Limit(8).Bill(100, 9));
    ExpectFailure(call, -307, "971A3");
    EXPECT_EQ(900U, call.request.AmountNow());
    EXPECT_EQ(0U, call.request.RemainderNow());
}

TEST(ReferenceDriver, AddsUpTheTotalInSinglePrecision) {
    // 16777217 is no single-precision number: the units seem to hold the rounded amount.
    ExpectFailure(Calculate(RequestBytes().Amount(16777217).Bill(1, 16777216)), -306, "971A2");
    const Call call = Calculate(RequestBytes().Partial(1).Amount(16777219).Bill(1, 16777217));
    EXPECT_EQ(16777216U, call.request.AmountNow());
}

TEST(ReferenceDriver, TakesNotesFromOkAndLowCassettesOnly) {
    ExpectPaid(Calculate(RequestBytes().Amount(400).Bill(10, 100, 1).Bill(10, 30, 0)), {0, 30},
               100);
    ExpectPaid(Calculate(RequestBytes().Amount(400).Bill(10, 100, 3).Bill(10, 30, 0)), {40}, 0);
}

TEST(ReferenceDriver, SpreadsInOrderFromTheFullestCassette) {
    ExpectPaid(Calculate(RequestBytes().Amount(120).Bill(10, 5).Bill(10, 10)), {2, 10}, 0);
}

TEST(ReferenceDriver, DealsRoundRobinForEqualEmptying) {
    for (const std::uint16_t mix : std::vector<std::uint16_t>{3, 8}) {
        ExpectPaid(Calculate(RequestBytes().Mix(mix).Amount(50).Bill(10, 101).Bill(10, 101)),
                   {3, 2}, 0);
    }
    ExpectPaid(Calculate(RequestBytes().Mix(3).Amount(50).Bill(10, 11).Bill(10, 10)), {3, 2}, 0);
    ExpectPaid(Calculate(RequestBytes().Mix(3).Amount(50).Bill(10, 11).Bill(10, 1)), {4, 1}, 0);
}

TEST(ReferenceDriver, EndsTheDealWhenACassetteCanTakeNoMore) {
    ExpectPaid(Calculate(RequestBytes().Mix(3).Amount(50).Bill(10, 3).Bill(10, 2, 1)), {3}, 20);
    ExpectPaid(Calculate(RequestBytes().Mix(3).Amount(50).Bill(10, 5, 2)), {}, 50);
}

TEST(ReferenceDriver, PassesOverPositionsBeyondTheResult) {
    ExpectPaid(Calculate(RequestBytes().Amount(60).Bill(10, 9).Bill(10, 3).Position(0, 6)), {0, 3},
               30);
}

TEST(ReferenceDriver, WeightsResultSlotsWithTheArrayEntryOfTheSameIndex) {
    RequestBytes request = RequestBytes().Amount(70).Bill(50, 9).Bill(20, 9);
    ExpectPaid(Calculate(request.Position(0, 1).Position(1, 0)), {1, 1}, 0);
    request = RequestBytes().Amount(50).Bill(50, 9).Bill(20, 9);
    ExpectPaid(Calculate(request.Position(0, 1).Position(1, 0)), {0, 1}, 30);
}

TEST(ReferenceDriver, PaysAWrappedCombinationFromWhatTheCassettesHold) {
    const Call call =
        Calculate(RequestBytes().Mix(4).Amount(110).Bill(100, 400).Bill(50, 400).Bill(20, 400));
    ExpectPaid(call, {1, 400, 3}, 110U - 20160U);
}

TEST(ReferenceDriver, NeverEndsOnSomePayableAmounts) {
    EXPECT_FALSE(
        Calculate(RequestBytes().Mix(4).Amount(60).Bill(50, 1000).Bill(20, 900).Bill(100, 100).Bill(
                      200, 40))
            .outcome.finished);
}

TEST(ReferenceDriver, PassesTheCodeOfASearchOn) {
    RequestBytes six = RequestBytes().Amount(100);
    for (const std::uint32_t value : {100U, 50U, 20U, 10U, 5U, 1U}) {
        six.Bill(value, 900);
    }
    for (std::uint16_t mix = 1; mix <= 10; ++mix) {
        ExpectFailure(Calculate(six.Mix(mix)), -315, "97194");
    }
}

TEST(ReferenceDriver, FailsSilentlyOnAWorthlessCouponForMixFour) {
    ExpectFailure(Calculate(RequestBytes().Mix(4).Amount(0).Coupon(0, 9)), -306, "");
    ExpectFailure(Calculate(RequestBytes().Mix(2).Amount(0).Coupon(0, 9)), -306, "");
    ExpectFailure(Calculate(RequestBytes().Mix(1).Amount(0).Coupon(0, 9)), -306, "971A2");
}

}  // namespace
}  // namespace reference
