#include "TableBuilder.h"

namespace {

Found Pay(const Table& table) {
    return table.Run(CMixAlgorithm::CalcFirstFitEmptying);
}

const Found kNotDispensed = Failed(-306, "971A2");
constexpr std::uint32_t kMinus1 = 0xFFFFFFFF;

Table FiftiesAndTwenties() {
    return Table().Bill(50, 10).Bill(20, 10);
}

TEST(CalcFirstFitEmptying, PaysFromOneUnit) {
    EXPECT_EQ(Pay(Table().Bill(20, 10).Amount(40)), Chosen({2}));
    EXPECT_EQ(Pay(Table().Bill(20, 10).Amount(50)), kNotDispensed);
    EXPECT_EQ(Pay(Table().Bill(20, 10).Amount(50).Partial()), Chosen({2}));
    EXPECT_EQ(Pay(Table().Bill(20, 2).Amount(100).Partial()), Chosen({2}));
    EXPECT_EQ(Pay(Table().Bill(20, 2).Amount(100).Partial(2)), kNotDispensed);
}

TEST(CalcFirstFitEmptying, NeverReportsTheLimitForOneUnit) {
    EXPECT_EQ(Pay(Table().Bill(20, 50).Amount(820).Limit(40)), kNotDispensed);
    EXPECT_EQ(Pay(Table().Coin(20, 50).Amount(820).Limit(40)), kNotDispensed);
}

TEST(CalcFirstFitEmptying, BacksOffUntilTheAmountIsMet) {
    EXPECT_EQ(Pay(FiftiesAndTwenties().Amount(130)), Chosen({1, 4}));  // past 2 and 1
    EXPECT_EQ(Pay(FiftiesAndTwenties().Amount(60)), Chosen({0, 3}));   // past 1 and 0
    EXPECT_EQ(Pay(Table().Bill(20, 9).Bill(50, 9).Bill(10, 9).Amount(80)), Chosen({4, 0, 0}));
    EXPECT_EQ(Pay(Table().Bill(50, 9).Bill(30, 9).Bill(20, 9).Bill(15, 9).Amount(65)),
              Chosen({1, 0, 0, 1}));
    EXPECT_EQ(Pay(Table().Bill(50, 9).Bill(30, 9).Bill(20, 9).Bill(15, 9).Bill(11, 9).Amount(41)),
              Chosen({0, 1, 0, 0, 1}));
}

TEST(CalcFirstFitEmptying, SkipsRefusalsForEveryNumberOfUnits) {
    const Table empty = Table().Amount(100).Limit(2);
    EXPECT_EQ(Pay(Table(empty).Bill(20, 10).Bill(50, 10)), Chosen({0, 2}, "971A3"));
    EXPECT_EQ(Pay(Table(empty).Bill(1000, 1).Bill(20, 10).Bill(50, 10)),
              Chosen({0, 0, 2}, "971A3"));
    EXPECT_EQ(Pay(Table(empty).Bill(1000, 1).Bill(2000, 1).Bill(20, 10).Bill(50, 10)),
              Chosen({0, 0, 0, 2}, "971A3"));
    EXPECT_EQ(Pay(Table(empty).Bill(1000, 1).Bill(2000, 1).Bill(3000, 1).Bill(20, 10).Bill(50, 10)),
              Chosen({0, 0, 0, 0, 2}, "971A3"));
    EXPECT_EQ(Pay(Table().Coin(20, 10).Bill(50, 10).Amount(100).Limit(2)), Chosen({0, 2}, "971A4"));
}

TEST(CalcFirstFitEmptying, TakesTheFirstShortCombinationOfTwoUnits) {
    EXPECT_EQ(Pay(FiftiesAndTwenties().Amount(135)), kNotDispensed);
    EXPECT_EQ(Pay(FiftiesAndTwenties().Amount(135).Partial()), Chosen({2, 1}));
    EXPECT_EQ(Pay(FiftiesAndTwenties().Amount(135).Partial(2)), kNotDispensed);
}

TEST(CalcFirstFitEmptying, PassesOverExactCombinationsWhenItFallsShort) {
    // 3 and 0 make the amount, but are refused; then 2 and 0 is the first that falls short.
    EXPECT_EQ(Pay(Table().Bill(20, 3).Bill(50, 1).Amount(60).Limit(2).Partial()),
              Chosen({2, 0}, "971A3"));
}

TEST(CalcFirstFitEmptying, RefusesExactCombinationsOnlyOnce) {
    // 3 and 0 has too many notes, 1 and 5 too many coins. The second pass meets 3 and 0 again on
    // its way to 2 and 2, but has no business with it.
    EXPECT_EQ(Pay(Table().Bill(20, 3).Coin(8, 9).Amount(60).Limit(2).Partial()),
              Chosen({2, 2}, "971A4"));
}

TEST(CalcFirstFitEmptying, MovesOnFromRefusedShortCombinations) {
    // (2, 1) (1, 4) (0, 6) and the wrapped (-1, 9) are all over the limit, then twenties run out.
    EXPECT_EQ(Pay(FiftiesAndTwenties().Amount(135).Limit(2).Partial()), kNotDispensed);
    EXPECT_EQ(Pay(FiftiesAndTwenties().Amount(135).Limit(3).Partial()), Chosen({2, 1}));
}

TEST(CalcFirstFitEmptying, FailsWhenTheFallbackIsShortOfTheSecondUnit) {
    EXPECT_EQ(Pay(Table().Bill(50, 10).Bill(20, 0).Amount(30).Partial()), kNotDispensed);
}

TEST(CalcFirstFitEmptying, CountsOnBelowZero) {
    // 4294967295 x 50 + 4 x 20 is 30 modulo 2^32, and 4294967295 + 4 items are 3.
    EXPECT_EQ(Pay(FiftiesAndTwenties().Amount(30)), Chosen({kMinus1, 4}));
    EXPECT_EQ(Pay(FiftiesAndTwenties().Amount(30).Limit(3)), Chosen({kMinus1, 4}));
}

TEST(CalcFirstFitEmptying, RefusesWrappedCombinationsToo) {
    // The wrapped (-1, 4) has 3 items, (-2, 6.5) is not exact, (-3, 9) has 6; then it is over.
    EXPECT_EQ(Pay(FiftiesAndTwenties().Amount(30).Limit(2)), kNotDispensed);
    EXPECT_EQ(Pay(Table().Bill(50, 10).Coin(20, 10).Amount(30)), kNotDispensed);
}

TEST(CalcFirstFitEmptying, PaysFarTooMuchFromThreeUnits) {
    EXPECT_EQ(Pay(Table().Bill(100, 400).Bill(50, 400).Bill(20, 400).Amount(110)),
              Chosen({1, kMinus1, 3}));
}

TEST(CalcFirstFitEmptying, FailsSilentlyWhenTheFirstUnitIsWorthNothing) {
    const Found silent = Failed(-306, "");
    EXPECT_EQ(Pay(Table().Bill(0, 9).Amount(0).Partial()), silent);
    EXPECT_EQ(Pay(Table().Bill(0, 9).Bill(50, 9).Amount(50)), silent);
    EXPECT_EQ(Pay(Table().Bill(0, 1).Bill(1, 1).Bill(2, 1).Bill(3, 1).Bill(4, 1).Bill(5, 1)),
              silent);
}

TEST(CalcFirstFitEmptying, FailsAloudWhenALaterUnitIsWorthNothing) {
    EXPECT_EQ(Pay(Table().Bill(50, 9).Bill(0, 9).Amount(50)), kNotDispensed);
    EXPECT_EQ(Pay(Table().Bill(50, 9).Bill(20, 9).Bill(0, 9).Amount(50).Partial()), kNotDispensed);
}

TEST(CalcFirstFitEmptying, HasNoRuleForSixUnitsOrNone) {
    Table six = Table().Bill(6, 9).Bill(5, 9).Bill(4, 9).Bill(3, 9).Bill(2, 9).Bill(1, 9);
    EXPECT_EQ(Pay(six.Amount(6)), Failed(-315, "97194"));
    six.table.usCount = std::uint16_t{0};
    EXPECT_EQ(Pay(six.Amount(6)), Failed(-315, "97194"));
}

TEST(CalcFirstFitEmptying, RunsLoopsThatStartAt2To31) {
    // 2^31 + 40 coins less 2^31 and more fall below the limit only when the loop has run on to 40.
    EXPECT_EQ(Pay(Table().Bill(0x80000000, 1).Bill(1, 40).Amount(0x80000000)), Chosen({1, 0}));
    // 2^31 items of the first unit and as many of the second are 0 items modulo 2^32.
    EXPECT_EQ(Pay(Table().Bill(1, 0x80000000).Bill(3, 0x80000000).Amount(0).Limit(0)),
              Chosen({0, 0}));
    EXPECT_EQ(Pay(Table().Bill(2, 0xC0000000).Bill(1, 2).Amount(0x80000000).Limit(0)),
              kNotDispensed);
}

/// Three times 2^28 from values of 5 and of 2 times 2^27: what is left to the second may wrap, so
/// that the loops themselves run. They come to (1, 0), (0, 3) which is exact, (-1, 5), (-2, 8)
/// which is exact too, (-3, 10), (-4, 13), and then the second is short.
Table MoneyThatWraps() {
    return Table().Bill(0x28000000, 1).Bill(0x10000000, 13).Amount(0x30000000);
}

TEST(CalcFirstFitEmptying, RunsTheLoopsOverMoneyThatWraps) {
    EXPECT_EQ(Pay(MoneyThatWraps()), Chosen({0, 3}));
    EXPECT_EQ(Pay(MoneyThatWraps().Limit(3)), Chosen({0, 3}));
    EXPECT_EQ(Pay(MoneyThatWraps().Limit(3).Partial()), Chosen({0, 3}));
    EXPECT_EQ(Pay(MoneyThatWraps().Limit(2)), kNotDispensed);
    EXPECT_EQ(Pay(MoneyThatWraps().Limit(2).Partial()), Chosen({1, 0}, "971A3"));
    EXPECT_EQ(Pay(MoneyThatWraps().Limit(0).Partial()), kNotDispensed);
}

}  // namespace
