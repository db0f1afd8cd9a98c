#include "TableBuilder.h"

namespace {

Found Pay(const Table& table) {
    return table.Run(CMixAlgorithm::CalcMaximumNotes);
}

const Found kNotDispensed = Failed(-306, "971A2");

Table TensAndFifties() {
    return Table().Bill(10, 100).Bill(50, 100).Amount(100);
}

TEST(CalcMaximumNotes, PaysFromOneUnit) {
    EXPECT_EQ(Pay(Table().Bill(20, 10).Amount(60)), Chosen({3}));
    EXPECT_EQ(Pay(Table().Bill(20, 10).Amount(70)), kNotDispensed);
    EXPECT_EQ(Pay(Table().Bill(20, 10).Amount(70).Partial(2)), kNotDispensed);
    EXPECT_EQ(Pay(Table().Bill(20, 10).Amount(70).Partial()), Chosen({3}));
    EXPECT_EQ(Pay(Table().Bill(20, 2).Amount(70).Partial()), Chosen({2}));
}

TEST(CalcMaximumNotes, ReportsTheLimitForOneUnit) {
    EXPECT_EQ(Pay(Table().Bill(10, 100).Amount(60).Limit(5)), Failed(-307, "971A3", {6}));
    EXPECT_EQ(Pay(Table().Bill(10, 100).Amount(65).Limit(5).Partial()), Failed(-307, "971A3", {6}));
    EXPECT_EQ(Pay(Table().Coin(10, 100).Amount(60).Limit(5)), Failed(-307, "971A4", {6}));
    EXPECT_EQ(Pay(Table().Bill(10, 100).Amount(60).Limit(6)), Chosen({6}));
}

TEST(CalcMaximumNotes, TakesAsManySmallNotesAsTheLimitAllows) {
    EXPECT_EQ(Pay(TensAndFifties().Limit(10)), Chosen({10, 0}));
    EXPECT_EQ(Pay(TensAndFifties().Limit(9)), Chosen({5, 1}));
    EXPECT_EQ(Pay(TensAndFifties().Limit(6)), Chosen({5, 1}));
    EXPECT_EQ(Pay(TensAndFifties().Limit(5)), Chosen({0, 2}));
    EXPECT_EQ(Pay(TensAndFifties().Limit(2)), Chosen({0, 2}));
    EXPECT_EQ(Pay(TensAndFifties().Limit(1)), kNotDispensed);
}

TEST(CalcMaximumNotes, LeavesNoCodeOfCandidatesOverTheLimit) {
    const Table three = TensAndFifties().Bill(1000, 1);
    EXPECT_EQ(Pay(Table(three).Limit(10)), Chosen({10, 0, 0}));
    EXPECT_EQ(Pay(Table(three).Limit(9)), Chosen({5, 1, 0}));
    EXPECT_EQ(Pay(Table(three).Limit(5)), Chosen({0, 2, 0}));
    EXPECT_EQ(Pay(Table(three).Limit(1)), kNotDispensed);
}

TEST(CalcMaximumNotes, SearchesFourAndFiveUnits) {
    EXPECT_EQ(Pay(Table().Bill(5, 9).Bill(10, 9).Bill(20, 9).Bill(50, 9).Amount(85)),
              Chosen({9, 4, 0, 0}));
    EXPECT_EQ(Pay(Table().Bill(5, 9).Bill(10, 9).Bill(20, 9).Bill(50, 9).Amount(85).Limit(4)),
              Chosen({1, 1, 1, 1}));
    EXPECT_EQ(
        Pay(Table().Bill(5, 9).Bill(10, 9).Bill(20, 9).Bill(50, 9).Bill(100, 9).Amount(185).Limit(
            5)),
        Chosen({1, 1, 1, 1, 1}));
}

TEST(CalcMaximumNotes, EndsWhereTheLastUnitIsShort) {
    EXPECT_EQ(Pay(Table().Bill(10, 3).Bill(50, 1).Amount(110)), kNotDispensed);
    EXPECT_EQ(Pay(Table().Bill(10, 6).Bill(50, 1).Amount(110)), Chosen({6, 1}));
}

TEST(CalcMaximumNotes, HoldsNotesAndCoinsTogetherToTheLimit) {
    // 5 coins and 1 note would each be within the limit of 5.
    EXPECT_EQ(Pay(Table().Coin(10, 100).Bill(50, 100).Amount(100).Limit(5)), Chosen({0, 2}));
    EXPECT_EQ(Pay(Table().Coin(10, 100).Bill(50, 1).Amount(100).Limit(5)), kNotDispensed);
    EXPECT_EQ(Pay(Table().Coin(10, 5).Bill(50, 1).Bill(1000, 1).Amount(100).Limit(5)),
              kNotDispensed);
}

TEST(CalcMaximumNotes, FillsGreedilyWhenNothingIsExact) {
    const Table table = Table().Bill(10, 3).Bill(50, 10).Amount(95).Partial();
    EXPECT_EQ(Pay(table), Chosen({3, 1}));
    EXPECT_EQ(Pay(Table(table).Partial(0)), kNotDispensed);
    EXPECT_EQ(Pay(Table(table).Limit(3)), Failed(-307, "971A3", {3, 1}));
}

TEST(CalcMaximumNotes, HoldsNotesAndCoinsApartAfterTheGreedyFill) {
    const Table table = Table().Coin(10, 3).Bill(50, 10).Amount(95).Partial();
    EXPECT_EQ(Pay(Table(table).Limit(3)), Chosen({3, 1}));
    EXPECT_EQ(Pay(Table(table).Limit(2)), Failed(-307, "971A4", {3, 1}));
}

TEST(CalcMaximumNotes, FillsGreedilyWhenEveryExactCombinationIsOverTheLimit) {
    EXPECT_EQ(Pay(TensAndFifties().Limit(1).Partial()), Failed(-307, "971A3", {10, 0}));
    // Three coins and two notes are five items, but the last check counts them apart.
    EXPECT_EQ(Pay(Table().Coin(10, 3).Bill(35, 2).Amount(100).Limit(3).Partial()), Chosen({3, 2}));
}

TEST(CalcMaximumNotes, HasNoRuleForSixUnitsOrNone) {
    Table six = Table().Bill(1, 9).Bill(2, 9).Bill(3, 9).Bill(4, 9).Bill(5, 9).Bill(6, 9);
    EXPECT_EQ(Pay(six.Amount(6)), Failed(-315, "97194"));
    EXPECT_EQ(Pay(Table().Amount(6)), Failed(-315, "97194"));
}

TEST(CalcMaximumNotes, FailsWhereItWouldDivideByZero) {
    EXPECT_EQ(Pay(Table().Bill(0, 9).Amount(0).Partial()), kNotDispensed);
    EXPECT_EQ(Pay(Table().Bill(0, 9).Bill(50, 9).Amount(50)), kNotDispensed);
    EXPECT_EQ(Pay(Table().Bill(50, 9).Bill(0, 9).Amount(50)), kNotDispensed);
    EXPECT_EQ(Pay(Table().Bill(0, 1).Bill(1, 1).Bill(2, 1).Bill(3, 1).Bill(4, 1).Bill(5, 1)),
              Failed(-315, "97194"));
}

TEST(CalcMaximumNotes, SearchesAsUsualWhenOnlyACountReaches2To31) {
    EXPECT_EQ(Pay(Table().Bill(10, 0x80000000).Bill(50, 10).Amount(100).Limit(5)), Chosen({0, 2}));
    EXPECT_EQ(Pay(Table().Bill(10, 0x80000000).Bill(50, 10).Amount(100)), Chosen({10, 0}));
}

TEST(CalcMaximumNotes, LimitsTheStartOfALoopOnlyFromThreeUnitsOn) {
    // With two units the loop starts at 2^31, which is negative, and is left out.
    const Table two = Table().Bill(1, 0xFFFFFFFF).Bill(0x80000000, 1).Amount(0x80000000);
    EXPECT_EQ(Pay(two), kNotDispensed);
    EXPECT_EQ(Pay(Table(two).Partial()), Failed(-307, "971A3", {0x80000000, 0}));
    EXPECT_EQ(Pay(Table(two).Bill(0x80000001, 1)), Chosen({0, 1, 0}));
}

}  // namespace
