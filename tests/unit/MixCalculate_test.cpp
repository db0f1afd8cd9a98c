#include "Answer.h"
#include "MixPlans.h"
#include "Terminal.h"

namespace {

constexpr unsigned kMixes[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
const Answer kNotDispensed = Refused(-306, "971A2");
const Answer kInvalidMix = Refused(-304, "971A5");

using MixCalculate = TerminalTest;

/// Cassettes that every mix may use, however little they hold.
Answer AskWithoutMinimum(const Request& request) {
    Module module;
    module.Inner().ulCstMinimum4Mix6 = 0U;
    return Ask(request, module);
}

Request PayableRequest(unsigned mix) {
    return Request().Mix(mix).Bill(20, 500).Amount(60);
}

TEST_F(MixCalculate, OffersAllMixes) {
    for (const unsigned mix : kMixes) {
        EXPECT_EQ(Ask(PayableRequest(mix)), Paid({3})) << mix;
    }
}

TEST_F(MixCalculate, RefusesEveryOtherNumber) {
    for (const unsigned mix :
         {0U, kMixCount + 1U, kMixCount + 2U, 256U, 257U, 266U, 0x8001U, 0xFFFFU}) {
        EXPECT_EQ(Ask(PayableRequest(mix)), kInvalidMix) << mix;
    }
}

TEST_F(MixCalculate, LeavesTheRequestOfAnInvalidMixUnchanged) {
    EXPECT_EQ(Ask(PayableRequest(4711).Exponent(2)).amount, 60U);
}

TEST_F(MixCalculate, AcceptsTheRangeOfTheObject) {
    Module module;
    module.Inner().usFirstMixNumber = std::uint16_t{3};
    module.Inner().usLastMixNumber = std::uint16_t{5};
    for (const unsigned mix : kMixes) {
        EXPECT_EQ(Ask(PayableRequest(mix), module), mix >= 3 && mix <= 5 ? Paid({3}) : kInvalidMix)
            << mix;
    }
}

TEST_F(MixCalculate, AcceptsNothingInAnEmptyRange) {
    Module module;
    module.Inner().usFirstMixNumber = std::uint16_t{6};
    module.Inner().usLastMixNumber = std::uint16_t{5};
    for (const unsigned mix : kMixes) {
        EXPECT_EQ(Ask(PayableRequest(mix), module), kInvalidMix) << mix;
    }
}

TEST_F(MixCalculate, RefusesNumbersInsideAWiderRangeThatNoMixHas) {
    Module module;
    module.Inner().usFirstMixNumber = std::uint16_t{0};
    module.Inner().usLastMixNumber = std::uint16_t{0xFFFF};
    for (const unsigned mix : {0U, kMixCount + 1U, 0x7FFFU, 0x8000U, 0xFFFFU}) {
        EXPECT_EQ(Ask(PayableRequest(mix), module), kInvalidMix) << mix;
    }
    EXPECT_EQ(Ask(PayableRequest(kMixCount), module), Paid({3}));
}

TEST_F(MixCalculate, MultipliesTheAmountByAPositivePowerOfTen) {
    const Answer answer = Ask(Request().Bill(100, 10).Amount(3).Exponent(2));
    EXPECT_EQ(answer, Paid({3}));
    EXPECT_EQ(answer.amount, 300U);
    EXPECT_EQ(Ask(Request().Bill(100, 10).Amount(5).Exponent(2)).amount, 500U);
    EXPECT_EQ(Ask(Request().Bill(10, 10).Amount(5).Exponent(1)).amount, 50U);
}

TEST_F(MixCalculate, ScalesTheAmountOfAFailedRequestToo) {
    EXPECT_EQ(Ask(Request().Amount(3).Exponent(2)).amount, 300U);
    EXPECT_EQ(Ask(Request().Bill(1000, 1).Amount(3).Exponent(2)), Paid({}).Rest(300));
}

TEST_F(MixCalculate, WrapsAScaledAmount) {
    EXPECT_EQ(Ask(Request().Amount(5).Exponent(9)).amount, 705032704U);
    EXPECT_EQ(Ask(Request().Amount(1).Exponent(32767)).amount, 0U);
}

TEST_F(MixCalculate, LeavesTheAmountAloneWithoutAPositiveExponent) {
    for (const int exponent : {0, -1, -2, -32768}) {
        EXPECT_EQ(Ask(Request().Bill(20, 9).Amount(3).Exponent(exponent)).amount, 3U);
    }
}

TEST_F(MixCalculate, BringsNotesToTheUnitOfANegativeExponent) {
    // The remainder mixes both units: 2000 hundredths less one note worth 20.
    EXPECT_EQ(Ask(Request().Bill(20, 9).Amount(2000).Exponent(-2)), Paid({1}).Rest(1980));
    // Mix 9 takes 2000 hundredths for 2000 units.
    EXPECT_EQ(Ask(Request().Mix(9).Bill(50, 200).Amount(2000).Exponent(-2)), Paid({40}));
}

TEST_F(MixCalculate, PaysNothingBelowTheSmallestNoteAndSucceeds) {
    for (const unsigned mix : {1U, 2U, 3U, 5U, 6U, 7U, 8U, 10U}) {
        const Request request = Request().Mix(mix).Bill(50, 500).Bill(20, 500);
        EXPECT_EQ(Ask(Request(request).Amount(19)), Paid({}).Rest(19)) << mix;
        EXPECT_EQ(Ask(Request(request).Amount(0)), Paid({}).Rest(0)) << mix;
        EXPECT_EQ(Ask(Request(request).Amount(20)), Paid({0, 1})) << mix;
    }
}

TEST_F(MixCalculate, SearchesEvenBelowTheSmallestNoteForMixes4And9) {
    for (const unsigned mix : {4U, 9U}) {
        EXPECT_EQ(Ask(Request().Mix(mix).Bill(20, 500).Amount(10)), kNotDispensed) << mix;
        EXPECT_EQ(Ask(Request().Mix(mix).Bill(20, 500).Amount(0)), Paid({})) << mix;
    }
}

TEST_F(MixCalculate, ComparesWithTheRescaledValue) {
    EXPECT_EQ(Ask(Request().Bill(20, 9).Amount(1999).Exponent(-2)), Paid({}).Rest(1999));
    EXPECT_EQ(Ask(Request().Coin(20, 9).Amount(20).Exponent(-2)), Paid({1}));
}

TEST_F(MixCalculate, ComparesWithoutASign) {
    EXPECT_EQ(Ask(Request().Bill(20, 9).Amount(0x80000000)), kNotDispensed);
    EXPECT_EQ(Ask(Request().Bill(0x80000000, 9).Amount(20)), Paid({}).Rest(20));
}

TEST_F(MixCalculate, FailsWithoutAnyUsableUnit) {
    for (const unsigned mix : kMixes) {
        EXPECT_EQ(Ask(Request().Mix(mix).Amount(60)), kNotDispensed) << mix;
        EXPECT_EQ(Ask(Request().Mix(mix).Amount(0).Partial()), kNotDispensed) << mix;
        EXPECT_EQ(Ask(Request().Mix(mix).Bill(20, 500).In("USD").Amount(60)), kNotDispensed);
    }
}

TEST_F(MixCalculate, LeavesOutCassettesAtTheMinimumInMixes6To9) {
    for (const unsigned mix : kMixes) {
        const bool hasMinimum = mix >= 6 && mix <= 9;
        EXPECT_EQ(Ask(Request().Mix(mix).Bill(20, 100).Amount(60)),
                  hasMinimum ? kNotDispensed : Paid({3}))
            << mix;
        EXPECT_EQ(Ask(Request().Mix(mix).Bill(20, 101).Amount(60)), Paid({3})) << mix;
    }
}

TEST_F(MixCalculate, LeavesOutLowCassettesInMix5Only) {
    for (const unsigned mix : kMixes) {
        EXPECT_EQ(Ask(PayableRequest(mix).Status(3)), mix == 5 ? kNotDispensed : Paid({3})) << mix;
    }
}

TEST_F(MixCalculate, CountsManipulatedCassettesButTakesNothingFromThem) {
    for (const unsigned mix : kMixes) {
        EXPECT_EQ(Ask(PayableRequest(mix).Status(9)), mix == 9 ? kNotDispensed : Paid({}).Rest(60))
            << mix;
    }
}

TEST_F(MixCalculate, TakesRecyclingCassettesInMix9Only) {
    for (const unsigned mix : kMixes) {
        EXPECT_EQ(Ask(Request().Mix(mix).Cassette(12, 20, 500).Amount(60)),
                  mix == 9 ? Paid({3}) : kNotDispensed)
            << mix;
    }
}

TEST_F(MixCalculate, RefusesSixUnitsInEveryMix) {
    for (const unsigned mix : kMixes) {
        Request request = Request().Mix(mix).Amount(10);
        for (std::uint32_t value = 1; value <= 6; ++value) {
            request.Bill(value, 500);
        }
        EXPECT_EQ(Ask(request), Refused(-315, "97194")) << mix;
    }
}

TEST_F(MixCalculate, FailsSilentlyWhenAWorthlessCouponComesFirst) {
    for (const unsigned mix : {2U, 4U, 7U, 9U}) {
        EXPECT_EQ(Ask(Request().Mix(mix).Coupon(0, 500).Amount(0)), Refused(-306, "")) << mix;
    }
    for (const unsigned mix : {1U, 3U, 5U, 6U, 8U, 10U}) {
        EXPECT_EQ(Ask(Request().Mix(mix).Coupon(0, 500).Amount(0)), kNotDispensed) << mix;
    }
}

TEST_F(MixCalculate, FailsWithAWorthlessCouponBesideNotes) {
    for (const unsigned mix : kMixes) {
        EXPECT_EQ(Ask(PayableRequest(mix).Coupon(0, 500)), kNotDispensed) << mix;
    }
}

TEST_F(MixCalculate, OrdersMix10FromTheSmallestNote) {
    const Request request = Request().Bill(50, 9).Bill(10, 9).Amount(90);
    EXPECT_EQ(Ask(Request(request).Mix(10)), Paid({0, 9}));
    EXPECT_EQ(Ask(Request(request).Mix(1)), Paid({1, 4}));
    EXPECT_EQ(Ask(Request().Mix(10).Bill(50, 9).Bill(100, 9).Amount(40)), Paid({}).Rest(40));
}

TEST_F(MixCalculate, DrawsDownTheUnitThatHoldsMostInMixes4And9) {
    for (const unsigned mix : {4U, 9U}) {
        EXPECT_EQ(AskWithoutMinimum(Request().Mix(mix).Bill(50, 50).Bill(10, 500).Amount(100)),
                  Paid({0, 10}))
            << mix;
    }
}

TEST_F(MixCalculate, ReadsMoreThanSixCassettesAsSix) {
    Request request;
    for (unsigned index = 0; index < 6; ++index) {
        request.Bill(10, 1);
    }
    request.Amount(60);
    for (const unsigned count : {7U, 0x8000U, 0xFFFFU}) {
        request.record.usNumPhysicalCUs = static_cast<std::uint16_t>(count);
        EXPECT_EQ(Ask(request), Paid({1, 1, 1, 1, 1, 1})) << count;
    }
}

TEST_F(MixCalculate, TakesRecordsAtAnyAddress) {
    Module module;
    const Request request = PayableRequest(1);
    for (std::size_t shift = 0; shift < 8; ++shift) {
        std::vector<unsigned char> memory(sizeof(MixRequest) + sizeof(MixResult) + 16, 0xEE);
        auto* const record = reinterpret_cast<MixRequest*>(memory.data() + shift);
        auto* const result =
            reinterpret_cast<MixResult*>(memory.data() + sizeof(MixRequest) + 8 + (shift + 3) % 8);
        *record = request.record;
        EXPECT_EQ(module.Outer().MixCalculate(record, result), 0);
        EXPECT_EQ(result->aulNotes[0], 3U);
    }
}

TEST_F(MixCalculate, KeepsAnOlderCodeWhenItSucceeds) {
    Module module;
    Ask(PayableRequest(4711), module);
    MixRequest record = PayableRequest(1).record;
    MixResult result;
    EXPECT_EQ(module.Outer().MixCalculate(&record, &result), 0);
    EXPECT_EQ(RecordedCode(), "971A5");
}

TEST_F(MixCalculate, ReturnsItsResultWhenNoCodeCanBeRecorded) {
    Module module;
    QxmixRegistryDeleteKey(kErrorCodeKey);
    EXPECT_EQ(Ask(PayableRequest(4711), module), Refused(-304, ""));
    EXPECT_EQ(Ask(Request().Bill(20, 9).Amount(70), module), Refused(-306, ""));
    EXPECT_EQ(QxmixRegistryKeyExists(kErrorCodeKey), 0);
}

TEST_F(MixCalculate, WritesTheRegistryOncePerFailureAndReadsNothing) {
    Module module;
    CallLog log;
    Ask(Request().Bill(20, 9).Amount(70), module);
    const Lines calls = CallLog::All();
    ASSERT_EQ(calls.size(), 3U);
    EXPECT_EQ(calls[0].substr(0, 13), "RegOpenKeyExW");
    EXPECT_EQ(calls[1].substr(0, 14), "RegSetValueExW");
    EXPECT_EQ(calls[2].substr(0, 11), "RegCloseKey");
}

TEST_F(MixCalculate, MakesNoCallAtAllWhenItSucceeds) {
    Module module;
    CallLog log;
    Ask(PayableRequest(2), module);
    EXPECT_EQ(CallLog::All(), Lines{});
}

}  // namespace
