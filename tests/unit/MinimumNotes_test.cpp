#include "TableBuilder.h"

namespace {

Found Pay(const Table& table) {
    return table.Run(CMixAlgorithm::CalcMinimumNotes);
}

const Found kNotDispensed = Failed(-306, "971A2");

TEST(CalcMinimumNotes, PaysFromOneUnit) {
    EXPECT_EQ(Pay(Table().Bill(20, 10).Amount(60)), Chosen({3}));
    EXPECT_EQ(Pay(Table().Bill(20, 3).Amount(60)), Chosen({3}));
    EXPECT_EQ(Pay(Table().Bill(20, 10).Amount(70)), kNotDispensed);
    EXPECT_EQ(Pay(Table().Bill(20, 2).Amount(60)), kNotDispensed);
}

TEST(CalcMinimumNotes, PaysPartOfTheAmountFromOneUnit) {
    EXPECT_EQ(Pay(Table().Bill(20, 10).Amount(70).Partial()), Chosen({3}));
    EXPECT_EQ(Pay(Table().Bill(20, 2).Amount(60).Partial()), Chosen({2}));
    EXPECT_EQ(Pay(Table().Bill(20, 10).Amount(19).Partial()), Chosen({0}));
}

TEST(CalcMinimumNotes, PaysPartOnlyForTheExactFlag) {
    for (const std::uint32_t flag : {0U, 2U, 3U, 0x101U, 0xFFFFFFFFU}) {
        EXPECT_EQ(Pay(Table().Bill(20, 10).Amount(70).Partial(flag)), kNotDispensed);
        EXPECT_EQ(Pay(Table().Bill(50, 1).Bill(20, 1).Amount(60).Partial(flag)), kNotDispensed);
    }
}

TEST(CalcMinimumNotes, TakesFewerLargeNotesWhereTheRestNeedsIt) {
    const Table table = Table().Bill(50, 10).Bill(20, 10);
    EXPECT_EQ(Pay(Table(table).Amount(60)), Chosen({0, 3}));
    EXPECT_EQ(Pay(Table(table).Amount(110)), Chosen({1, 3}));
    EXPECT_EQ(Pay(Table(table).Amount(100)), Chosen({2, 0}));
    EXPECT_EQ(Pay(Table(table).Amount(700)), Chosen({10, 10}));
    EXPECT_EQ(Pay(Table(table).Amount(0)), Chosen({0, 0}));
}

TEST(CalcMinimumNotes, EndsWhereTheLastUnitIsShort) {
    const Table table = Table().Bill(50, 10).Bill(20, 2).Amount(110);
    EXPECT_EQ(Pay(table), kNotDispensed);
    EXPECT_EQ(Pay(Table(table).Partial()), Chosen({2, 0}));
}

TEST(CalcMinimumNotes, GoesOnWithTheUnitBeforeWhenTheLastIsShort) {
    // One of 60 leaves 50, for which there are too few twenties; without it, two of 55 pay.
    EXPECT_EQ(Pay(Table().Bill(60, 1).Bill(55, 2).Bill(20, 1).Amount(110)), Chosen({0, 2, 0}));
}

TEST(CalcMinimumNotes, SearchesThreeToFiveUnits) {
    EXPECT_EQ(Pay(Table().Bill(50, 9).Bill(20, 9).Bill(10, 9).Amount(80)), Chosen({1, 1, 1}));
    EXPECT_EQ(Pay(Table().Bill(50, 9).Bill(20, 9).Bill(10, 9).Bill(5, 9).Amount(85)),
              Chosen({1, 1, 1, 1}));
    EXPECT_EQ(Pay(Table().Bill(100, 9).Bill(50, 9).Bill(20, 9).Bill(10, 9).Bill(5, 9).Amount(185)),
              Chosen({1, 1, 1, 1, 1}));
    // Back through every level: only three of the 7 pay 21 when the others have no fitting rest.
    EXPECT_EQ(Pay(Table().Bill(20, 9).Bill(16, 9).Bill(12, 9).Bill(10, 9).Bill(7, 3).Amount(21)),
              Chosen({0, 0, 0, 0, 3}));
}

TEST(CalcMinimumNotes, TakesTheFirstCombinationEvenOverTheLimit) {
    // Two of 50 would be within it, but the first combination is five of 20.
    EXPECT_EQ(Pay(Table().Bill(20, 10).Bill(50, 10).Amount(100).Limit(2)),
              Failed(-307, "971A3", {5, 0}));
    EXPECT_EQ(Pay(Table().Coin(20, 10).Bill(50, 10).Amount(100).Limit(2)),
              Failed(-307, "971A4", {5, 0}));
}

TEST(CalcMinimumNotes, RefusesCombinationAboveLimit) {
    EXPECT_EQ(Pay(Table().Bill(50, 10).Bill(20, 50).Amount(820).Limit(25)),
              Failed(-307, "971A3", {10, 16}));
    EXPECT_EQ(Pay(Table().Bill(20, 50).Amount(820).Limit(40)), Failed(-307, "971A3", {41}));
    EXPECT_EQ(Pay(Table().Bill(20, 50).Amount(800).Limit(40)), Chosen({40}));
}

TEST(CalcMinimumNotes, PaysGreedilyWhenNothingIsExact) {
    const Table table = Table().Bill(50, 1).Bill(20, 10).Bill(7, 1).Amount(138).Partial();
    EXPECT_EQ(Pay(table), Chosen({1, 4, 1}));
    EXPECT_EQ(Pay(Table(table).Limit(5)), Failed(-307, "971A3", {1, 4, 1}));
}

TEST(CalcMinimumNotes, HasNoRuleForSixUnitsOrNone) {
    Table six = Table().Bill(6, 9).Bill(5, 9).Bill(4, 9).Bill(3, 9).Bill(2, 9).Bill(1, 9);
    EXPECT_EQ(Pay(six.Amount(6)), Failed(-315, "97194"));
    EXPECT_EQ(Pay(six.Amount(6).Partial()), Failed(-315, "97194"));
    EXPECT_EQ(Pay(Table().Amount(6)), Failed(-315, "97194"));
}

TEST(CalcMinimumNotes, FailsWhereItWouldDivideByZero) {
    EXPECT_EQ(Pay(Table().Bill(0, 9).Amount(0).Partial()), kNotDispensed);
    EXPECT_EQ(Pay(Table().Bill(50, 9).Bill(0, 9).Amount(50)), kNotDispensed);
    EXPECT_EQ(Pay(Table().Bill(50, 9).Bill(20, 9).Bill(0, 9).Amount(50).Partial()), kNotDispensed);
    EXPECT_EQ(Pay(Table().Bill(0, 1).Bill(1, 1).Bill(2, 1).Bill(3, 1).Bill(4, 1).Bill(5, 1)),
              Failed(-315, "97194"));
}

TEST(CalcMinimumNotes, ReadsTheNeedOfTheLastUnitWithASign) {
    // A count of 2^31 is negative: even a need of 0 is more than that, and the search is over.
    const Table table = Table().Bill(50, 10).Bill(20, 0x80000000).Amount(100);
    EXPECT_EQ(Pay(table), kNotDispensed);
    EXPECT_EQ(Pay(Table(table).Partial()), Chosen({2, 0}));
    // A need of 2^31 is negative too, and so less than a count of 5; it fails at the limit only.
    EXPECT_EQ(Pay(Table().Bill(3, 1).Bill(1, 5).Amount(0x80000003)),
              Failed(-307, "971A3", {1, 0x80000000}));
    EXPECT_EQ(Pay(Table().Bill(3, 1).Bill(1, 5).Amount(0x80000002)), kNotDispensed);
}

TEST(CalcMinimumNotes, TakesAllThatTheLastUnitHoldsForAmountsFrom2To31) {
    const Table table = Table().Bill(1000000, 3000).Bill(1, 7).Limit(3007);
    EXPECT_EQ(Pay(Table(table).Amount(3000000007)), Chosen({3000, 7}));
    EXPECT_EQ(Pay(Table(table).Amount(3000000008)), kNotDispensed);
}

TEST(CalcMinimumNotes, RunsLoopsThatStartAt2To31) {
    EXPECT_EQ(Pay(Table().Bill(1, 0xFFFFFFFF).Bill(7, 5).Amount(0x80000000)),
              Failed(-307, "971A3", {0x80000000, 0}));
}

TEST(CalcMinimumNotes, SearchesAsUsualWhenOnlyACountReaches2To31) {
    EXPECT_EQ(Pay(Table().Bill(50, 0x80000000).Bill(20, 10).Amount(110)), Chosen({1, 3}));
    EXPECT_EQ(Pay(Table().Bill(50, 0x80000000).Bill(20, 10).Amount(130).Limit(40)), Chosen({1, 4}));
}

}  // namespace
