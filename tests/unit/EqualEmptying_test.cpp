#include "TableBuilder.h"

namespace {

Found Pay(const Table& table) {
    return table.Run(CMixAlgorithm::CalcEqualEmptying);
}

const Found kNotDispensed = Failed(-306, "971A2");

/// 100 can be made of five twenties first, or of two fifties later.
Table SmallFirst() {
    return Table().Bill(20, 10).Bill(50, 10).Amount(100);
}

TEST(CalcEqualEmptying, PaysFromOneUnit) {
    EXPECT_EQ(Pay(Table().Bill(20, 10).Amount(40)), Chosen({2}));
    EXPECT_EQ(Pay(Table().Bill(20, 10).Amount(50)), kNotDispensed);
    EXPECT_EQ(Pay(Table().Bill(20, 10).Amount(50).Partial()), Chosen({2}));
    EXPECT_EQ(Pay(Table().Bill(20, 2).Amount(100).Partial()), Chosen({2}));
    EXPECT_EQ(Pay(Table().Bill(20, 2).Amount(10).Partial()), Chosen({0}));
}

TEST(CalcEqualEmptying, NeverReportsTheLimitForOneUnit) {
    EXPECT_EQ(Pay(Table().Bill(20, 50).Amount(820).Limit(40)), kNotDispensed);
    EXPECT_EQ(Pay(Table().Coin(20, 50).Amount(830).Limit(40).Partial()), kNotDispensed);
}

TEST(CalcEqualEmptying, ChoosesTheMostEqualShares) {
    EXPECT_EQ(Pay(Table().Bill(50, 100).Bill(20, 50).Amount(200)), Chosen({4, 0}));
    EXPECT_EQ(Pay(Table().Bill(50, 20).Bill(20, 20).Bill(10, 40).Amount(100)), Chosen({1, 1, 3}));
}

TEST(CalcEqualEmptying, ComparesNeighboursAroundTheTableForFourAndFiveUnits) {
    EXPECT_EQ(Pay(Table().Bill(7, 9).Bill(5, 5).Bill(3, 7).Bill(2, 4).Amount(60)),
              Chosen({5, 3, 2, 2}));
    EXPECT_EQ(Pay(Table().Bill(7, 5).Bill(5, 9).Bill(3, 4).Bill(2, 7).Amount(60)),
              Chosen({3, 5, 2, 4}));
    EXPECT_EQ(Pay(Table().Bill(11, 9).Bill(7, 5).Bill(5, 7).Bill(3, 4).Bill(2, 6).Amount(90)),
              Chosen({4, 2, 4, 2, 3}));
    EXPECT_EQ(Pay(Table().Bill(11, 6).Bill(7, 4).Bill(5, 7).Bill(3, 5).Bill(2, 9).Amount(90)),
              Chosen({3, 2, 4, 3, 7}));
}

TEST(CalcEqualEmptying, KeepsTheFirstOfEqualShares) {
    EXPECT_EQ(Pay(Table().Bill(10, 9).Coin(10, 9).Amount(10)), Chosen({1, 0}));
    EXPECT_EQ(Pay(Table().Bill(10, 9).Bill(10, 9).Bill(10, 9).Amount(10)), Chosen({1, 0, 0}));
    EXPECT_EQ(Pay(Table().Bill(9, 9).Bill(9, 9).Bill(9, 9).Bill(9, 9).Amount(9)),
              Chosen({1, 0, 0, 0}));
    EXPECT_EQ(Pay(Table().Bill(9, 9).Bill(9, 9).Bill(9, 9).Bill(9, 9).Bill(9, 9).Amount(9)),
              Chosen({1, 0, 0, 0, 0}));
}

TEST(CalcEqualEmptying, LeavesTheCodeOfALaterRefusalOnSuccess) {
    const Table table = Table().Bill(50, 10).Bill(20, 10).Amount(140);
    EXPECT_EQ(Pay(Table(table).Limit(5)), Chosen({2, 2}, "971A3"));  // 0 and 7 is refused
    EXPECT_EQ(Pay(Table(table).Limit(7)), Chosen({2, 2}));
    EXPECT_EQ(Pay(Table().Bill(50, 10).Coin(20, 10).Amount(140).Limit(5)), Chosen({2, 2}, "971A4"));
}

TEST(CalcEqualEmptying, EndsThePassAtTheFirstRefusalOfTwoUnits) {
    EXPECT_EQ(Pay(SmallFirst().Limit(2)), kNotDispensed);
    EXPECT_EQ(Pay(SmallFirst().Amount(105).Limit(2).Partial()), kNotDispensed);
}

TEST(CalcEqualEmptying, SkipsRefusalsOfThreeToFiveUnits) {
    EXPECT_EQ(Pay(SmallFirst().Bill(1000, 1).Limit(2)), Chosen({0, 2, 0}, "971A3"));
    EXPECT_EQ(Pay(SmallFirst().Bill(1000, 1).Bill(2000, 1).Limit(2)),
              Chosen({0, 2, 0, 0}, "971A3"));
    EXPECT_EQ(Pay(SmallFirst().Bill(1000, 1).Bill(2000, 1).Bill(3000, 1).Limit(2)),
              Chosen({0, 2, 0, 0, 0}, "971A3"));
}

TEST(CalcEqualEmptying, FallsBackToTheMostEqualSharesBelowTheAmount) {
    const Table table = Table().Bill(50, 10).Bill(20, 10).Amount(135);
    EXPECT_EQ(Pay(table), kNotDispensed);
    EXPECT_EQ(Pay(Table(table).Partial()), Chosen({2, 1}));  // not 1 and 4, which pays more
    EXPECT_EQ(Pay(Table(table).Partial(2)), kNotDispensed);
    EXPECT_EQ(Pay(SmallFirst().Bill(1000, 1).Amount(105).Partial()), Chosen({0, 0, 0}));
}

TEST(CalcEqualEmptying, FallsBackAmongMoreAmountsThanAreWalkedOneByOne) {
    const auto pay = [](const Table& table) { return Pay(Table(table).Partial()); };
    const Table four = Table().Bill(2411, 40).Bill(2003, 60).Bill(1511, 77).Bill(1201, 90);
    EXPECT_EQ(pay(Table(four).Amount(98765).Limit(60)), Chosen({11, 21, 16, 5}, "971A3"));
    EXPECT_EQ(pay(Table()
                      .Bill(2411, 40)
                      .Bill(2003, 60)
                      .Bill(1511, 37)
                      .Bill(1201, 90)
                      .Bill(1009, 80)
                      .Amount(54321)
                      .Limit(30)),
              Chosen({6, 11, 11, 1, 0}, "971A3"));
    EXPECT_EQ(pay(Table()
                      .Bill(2411, 4000)
                      .Bill(2003, 6000)
                      .Bill(1511, 3700)
                      .Bill(1201, 9000)
                      .Amount(9871)),
              Chosen({3, 0, 0, 2}));
    // One by one would take minutes.
    EXPECT_EQ(pay(Table().Bill(4, 1).Bill(2, 1).Bill(2000000011, 1).Amount(1999999999)),
              Chosen({0, 0, 0}));
}

TEST(CalcEqualEmptying, FallsBackWhereExactCombinationsAreRefused) {
    EXPECT_EQ(Pay(Table().Bill(50, 10).Bill(20, 10).Amount(60).Limit(2).Partial()),
              Chosen({1, 0}, "971A3"));
    EXPECT_EQ(Pay(Table().Bill(50, 10).Bill(20, 10).Amount(60).Limit(0).Partial()), kNotDispensed);
}

TEST(CalcEqualEmptying, HasNoRuleForSixUnitsOrNone) {
    Table six = Table().Bill(6, 9).Bill(5, 9).Bill(4, 9).Bill(3, 9).Bill(2, 9).Bill(1, 9);
    EXPECT_EQ(Pay(six.Amount(6)), Failed(-315, "97194"));
    EXPECT_EQ(Pay(Table().Amount(6)), Failed(-315, "97194"));
}

TEST(CalcEqualEmptying, FailsWhereItWouldDivideByZero) {
    EXPECT_EQ(Pay(Table().Bill(0, 9).Amount(0).Partial()), kNotDispensed);
    EXPECT_EQ(Pay(Table().Bill(0, 9).Bill(50, 9).Amount(50)), kNotDispensed);
    EXPECT_EQ(Pay(Table().Bill(50, 9).Bill(20, 9).Bill(0, 9).Amount(50).Partial()), kNotDispensed);
    EXPECT_EQ(Pay(Table().Bill(0, 1).Bill(1, 1).Bill(2, 1).Bill(3, 1).Bill(4, 1).Bill(5, 1)),
              Failed(-315, "97194"));
}

TEST(CalcEqualEmptying, LeavesOutLoopsThatStartAt2To31) {
    const Table first = Table().Bill(1, 0xFFFFFFFF).Bill(7, 5).Amount(0x80000000);
    EXPECT_EQ(Pay(first), kNotDispensed);
    EXPECT_EQ(Pay(Table(first).Partial()), kNotDispensed);
    EXPECT_EQ(
        Pay(Table().Bill(0x80000001, 1).Bill(1, 0xFFFFFFFF).Bill(0x40000000, 2).Amount(0x80000000)),
        kNotDispensed);
}

TEST(CalcEqualEmptying, SkipsRefusalsOfThreeUnitsWhenACountReaches2To31Too) {
    EXPECT_EQ(Pay(Table().Bill(50, 10).Bill(20, 10).Bill(10, 0x80000000).Amount(100).Limit(4)),
              Chosen({2, 0, 0}, "971A3"));
}

TEST(CalcEqualEmptying, ComparesWrappedSharesOfTwoUnits) {
    // 131072 * 32768 is 2^32: taking everything from one unit scores 0, like taking equal shares.
    EXPECT_EQ(Pay(Table().Bill(1, 131072).Bill(2, 131072).Amount(32768).Limit(65535)),
              Chosen({32768, 0}));
    EXPECT_EQ(Pay(Table().Bill(1, 131072).Bill(2, 131072).Amount(32766).Limit(65535)),
              Chosen({10922, 10922}));
}

TEST(CalcEqualEmptying, ReadsWrappedDifferencesAsSignedNumbers) {
    // 131072 * 30000 is 0xEA600000 and counts as 0x15A00000; 131072 * 14998 is 0x752C0000.
    EXPECT_EQ(Pay(Table().Bill(1, 131072).Bill(15001, 131072).Amount(30000).Limit(65535)),
              Chosen({30000, 0}));
}

TEST(CalcEqualEmptying, TakesADifferenceOf2To31ForTheLargest) {
    // 131072 * 16384 is 2^31, which has no positive counterpart and keeps its bits.
    EXPECT_EQ(Pay(Table().Bill(1, 131072).Bill(8000, 131072).Amount(16384).Limit(65535)),
              Chosen({384, 2}));
}

TEST(CalcEqualEmptying, TakesTheMostUnequalSharesWhoseSumWraps) {
    // No share wraps, but four differences of a whole cassette add up to 4 * 1080000000, which is
    // 2^32 + 25032704: less than any combination that takes something from every unit.
    EXPECT_EQ(
        Pay(Table().Bill(1, 40000).Bill(1000, 300).Bill(5000, 10).Bill(7000, 9).Amount(90000).Limit(
            65535)),
        Chosen({40000, 0, 10, 0}));
}

TEST(CalcEqualEmptying, FollowsSumsThatOnlyTheLastUnitsBringTo2To32) {
    // The differences of the shares add up to 2^32 and 14528, 1558724, 111104 or 66020.
    const auto pay = [](const Table& table) { return Pay(Table(table).Limit(60000)); };
    EXPECT_EQ(pay(Table().Bill(18, 199).Bill(6, 303).Bill(4, 141).Bill(1, 235).Amount(2082)),
              Chosen({26, 220, 32, 166}));
    EXPECT_EQ(pay(Table().Bill(48, 202).Bill(16, 158).Bill(5, 205).Bill(5, 201).Amount(4736)),
              Chosen({30, 151, 5, 171}));
    EXPECT_EQ(
        pay(Table().Bill(32, 65).Bill(1, 111).Bill(18, 86).Bill(14, 50).Bill(1, 45).Amount(1934)),
        Chosen({16, 51, 73, 1, 43}));
    EXPECT_EQ(
        pay(Table().Bill(19, 54).Bill(35, 103).Bill(18, 56).Bill(4, 79).Bill(2, 63).Amount(4659)),
        Chosen({38, 101, 11, 50, 2}));
}

TEST(CalcEqualEmptying, FollowsSumsBeyond2To32AfterLessEqualOnesBelow) {
    const auto pay = [](const Table& table) { return Pay(Table(table).Limit(60000)); };
    EXPECT_EQ(pay(Table().Bill(55, 181).Bill(11, 236).Bill(3, 264).Bill(2, 185).Amount(8260)),
              Chosen({143, 6, 97, 19}));
    EXPECT_EQ(pay(Table().Bill(1, 267).Bill(5, 268).Bill(3, 198).Bill(1, 138).Amount(637)),
              Chosen({264, 14, 88, 39}));
    EXPECT_EQ(pay(Table().Bill(35, 133).Bill(3, 236).Bill(37, 197).Bill(4, 298).Amount(7669)),
              Chosen({125, 47, 85, 2}));
    EXPECT_EQ(
        pay(Table().Bill(58, 37).Bill(60, 116).Bill(53, 68).Bill(36, 82).Bill(6, 73).Amount(3359)),
        Chosen({37, 1, 5, 24, 4}));
}

TEST(CalcEqualEmptying, ReckonsWithTheLastChosenShareInSumsBeyond2To32) {
    // The differences add up to 2^32 and 723992, 170496 or 55184.
    EXPECT_EQ(Pay(Table()
                      .Bill(6, 59)
                      .Bill(15, 42)
                      .Bill(6, 69)
                      .Bill(55, 111)
                      .Bill(34, 64)
                      .Amount(6200)
                      .Limit(60000)),
              Chosen({56, 34, 1, 96, 2}));
    const auto pay = [](const Table& table) { return Pay(Table(table).Limit(60000)); };
    EXPECT_EQ(
        pay(Table().Bill(6, 64).Bill(21, 73).Bill(25, 89).Bill(4, 44).Bill(55, 72).Amount(1445)),
        Chosen({48, 26, 2, 44, 7}));
    EXPECT_EQ(
        pay(Table().Bill(60, 45).Bill(3, 79).Bill(3, 106).Bill(2, 98).Bill(4, 36).Amount(2163)),
        Chosen({30, 53, 0, 98, 2}));
}

TEST(CalcEqualEmptying, ReckonsWithTheFirstShareInSumsBeyond2To32) {
    const auto pay = [](const Table& table) { return Pay(Table(table).Limit(60000)); };
    EXPECT_EQ(
        pay(Table().Bill(10, 57).Bill(7, 57).Bill(6, 129).Bill(3, 82).Bill(1, 41).Amount(468)),
        Chosen({3, 56, 2, 3, 25}));
    EXPECT_EQ(pay(Table().Bill(9, 33).Bill(8, 72).Bill(6, 86).Bill(5, 93).Bill(1, 59).Amount(837)),
              Chosen({0, 71, 31, 5, 58}));
}

TEST(CalcEqualEmptying, TakesASumOfExactly2To32ForPerfectlyEqual) {
    // The product of the counts is 2^30, and each of the four differences a whole cassette.
    EXPECT_EQ(
        Pay(Table().Bill(200, 256).Bill(10, 256).Bill(100, 128).Bill(50, 128).Amount(64000).Limit(
            65535)),
        Chosen({256, 0, 128, 0}));
}

TEST(CalcEqualEmptying, TakesASumOfExactly2To32WhoseSharesARateRoundsDown) {
    // A whole unit and 424 of 600 make 2^31; twice that is the sum of the differences.
    EXPECT_EQ(Pay(Table()
                      .Bill(7000, 128)
                      .Bill(7000, 128)
                      .Bill(1000, 128)
                      .Bill(3, 600)
                      .Amount(128 * 7000 + 424 * 3)
                      .Limit(65535)),
              Chosen({0, 128, 0, 424}));
}

TEST(CalcEqualEmptying, ComparesWrappedSharesOfThreeUnits) {
    // Unwrapped, 1, 2 and 1 would be the most equal shares of all the combinations that make 100.
    EXPECT_EQ(Pay(Table().Bill(50, 20000).Bill(20, 20000).Bill(10, 20000).Amount(100)),
              Chosen({0, 2, 6}));
    EXPECT_EQ(Pay(Table().Bill(50, 9000).Bill(20, 10000).Bill(10, 11000).Amount(260)),
              Chosen({0, 1, 24}));
}

TEST(CalcEqualEmptying, GoesOnBelowTheAmountForWrappedSharesThatThePlainLoopsMeetEarlier) {
    // Wrapped, 1, 3 and 11 are perfectly equal and make 116; so are 2, 1 and 10, which make 114.
    EXPECT_EQ(
        Pay(Table().Bill(30, 16384).Bill(14, 16384).Bill(4, 16384).Amount(117).Limit(40).Partial()),
        Chosen({2, 1, 10}));
}

TEST(CalcEqualEmptying, FallsShortByWhatTheValuesDivide) {
    const Table table = Table().Bill(30, 9).Bill(14, 9).Bill(4, 9).Partial();
    EXPECT_EQ(Pay(Table(table).Amount(2)), Chosen({0, 0, 0}));
    EXPECT_EQ(Pay(Table(table).Amount(6)), Chosen({0, 0, 1}));
}

}  // namespace
