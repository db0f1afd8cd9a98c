#include "TableBuilder.h"

namespace {

Found Pay(const Table& table) {
    return table.Run(CMixAlgorithm::CalcEqualNotes);
}

const Found kNotDispensed = Failed(-306, "971A2");

/// 100 can be made of five twenties first, or of two fifties later.
Table SmallFirst() {
    return Table().Bill(20, 10).Bill(50, 10).Amount(100);
}

/// The same with a third unit, worth too much to be used.
Table SmallFirstOfThree() {
    return SmallFirst().Bill(1000, 1);
}

TEST(CalcEqualNotes, PaysFromOneUnit) {
    EXPECT_EQ(Pay(Table().Bill(20, 10).Amount(60)), Chosen({3}));
    EXPECT_EQ(Pay(Table().Bill(20, 10).Amount(70)), kNotDispensed);
    EXPECT_EQ(Pay(Table().Bill(20, 10).Amount(70).Partial()), Chosen({3}));
    EXPECT_EQ(Pay(Table().Bill(20, 2).Amount(70).Partial()), Chosen({2}));
    EXPECT_EQ(Pay(Table().Bill(20, 2).Amount(10).Partial()), Chosen({0}));
    EXPECT_EQ(Pay(Table().Bill(20, 2).Amount(10).Partial(2)), kNotDispensed);
}

TEST(CalcEqualNotes, NeverReportsTheLimitForOneUnit) {
    EXPECT_EQ(Pay(Table().Bill(20, 50).Amount(820).Limit(40)), kNotDispensed);
    EXPECT_EQ(Pay(Table().Bill(20, 50).Amount(830).Limit(40).Partial()), kNotDispensed);
}

TEST(CalcEqualNotes, ChoosesTheLessUneven) {
    EXPECT_EQ(Pay(Table().Bill(50, 10).Bill(20, 10).Amount(100)), Chosen({2, 0}));  // not 0 and 5
    EXPECT_EQ(Pay(Table().Bill(50, 10).Bill(20, 10).Amount(140)), Chosen({2, 2}));  // not 0 and 7
    EXPECT_EQ(Pay(Table().Bill(50, 10).Bill(20, 10).Bill(10, 10).Amount(160)), Chosen({2, 2, 2}));
    EXPECT_EQ(Pay(Table().Bill(50, 10).Bill(20, 10).Bill(10, 10).Bill(5, 10).Amount(85)),
              Chosen({1, 1, 1, 1}));
    EXPECT_EQ(Pay(Table().Bill(100, 9).Bill(50, 9).Bill(20, 9).Bill(10, 9).Bill(5, 9).Amount(370)),
              Chosen({2, 2, 2, 2, 2}));
}

TEST(CalcEqualNotes, KeepsTheFirstOfEquallyUneven) {
    EXPECT_EQ(Pay(Table().Bill(10, 9).Coin(10, 9).Amount(10)), Chosen({1, 0}));
    EXPECT_EQ(Pay(Table().Bill(10, 9).Coin(10, 9).Unit(5, 10, 9).Amount(10)), Chosen({1, 0, 0}));
    EXPECT_EQ(Pay(Table().Bill(9, 9).Bill(9, 9).Bill(9, 9).Bill(9, 9).Amount(18)),
              Chosen({1, 1, 0, 0}));
    EXPECT_EQ(Pay(Table().Bill(9, 9).Bill(9, 9).Bill(9, 9).Bill(9, 9).Bill(9, 9).Amount(27)),
              Chosen({1, 1, 1, 0, 0}));
}

TEST(CalcEqualNotes, KeepsTheFirstOfEquallyUnevenEvenWhenItsCountsLieFurtherApart) {
    // As equal as 2 2 0 2 0, 4 1 4 1, and 2 1 4 5 1, whose counts lie closer together.
    EXPECT_EQ(Pay(Table().Bill(10, 6).Bill(9, 5).Bill(8, 1).Bill(6, 5).Bill(3, 1).Amount(50)),
              Chosen({3, 1, 1, 0, 1}));
    EXPECT_EQ(Pay(Table().Bill(9, 5).Bill(8, 1).Bill(5, 5).Bill(1, 3).Amount(65)),
              Chosen({5, 1, 2, 2}));
    EXPECT_EQ(Pay(Table().Bill(13, 2).Bill(6, 2).Bill(5, 6).Bill(4, 5).Bill(3, 1).Amount(75)),
              Chosen({2, 2, 5, 3, 0}));
    // As equal as 8 7 1 0; so far apart that only the strictest border of the band keeps it.
    EXPECT_EQ(Pay(Table().Bill(51, 10).Bill(46, 7).Bill(30, 5).Bill(20, 5).Amount(760).Limit(40)),
              Chosen({10, 0, 5, 5}));
}

TEST(CalcEqualNotes, EndsThePassAtTheFirstRefusalOfTwoUnits) {
    EXPECT_EQ(Pay(SmallFirst().Limit(2)), kNotDispensed);
    EXPECT_EQ(Pay(SmallFirst().Amount(105).Limit(2).Partial()), kNotDispensed);
}

TEST(CalcEqualNotes, SkipsRefusalsOfThreeToFiveUnits) {
    EXPECT_EQ(Pay(SmallFirstOfThree().Limit(2)), Chosen({0, 2, 0}, "971A3"));
    EXPECT_EQ(Pay(SmallFirstOfThree().Bill(2000, 1).Limit(2)), Chosen({0, 2, 0, 0}, "971A3"));
    EXPECT_EQ(Pay(SmallFirstOfThree().Bill(2000, 1).Bill(3000, 1).Limit(2)),
              Chosen({0, 2, 0, 0, 0}, "971A3"));
}

TEST(CalcEqualNotes, LeavesTheCodeOfALaterRefusalOnSuccess) {
    const Table table = Table().Bill(50, 10).Bill(20, 10).Amount(100);
    EXPECT_EQ(Pay(Table(table).Limit(5)), Chosen({2, 0}));
    EXPECT_EQ(Pay(Table(table).Limit(4)), Chosen({2, 0}, "971A3"));
    EXPECT_EQ(Pay(Table().Bill(50, 10).Coin(20, 10).Amount(100).Limit(4)), Chosen({2, 0}, "971A4"));
}

TEST(CalcEqualNotes, LeavesTheCodeOfTheLastRefusal) {
    // In order: five coins of 20 (971A4), then two notes of 50, then ten notes of 10 (971A3).
    EXPECT_EQ(Pay(Table().Coin(20, 5).Bill(50, 9).Bill(10, 10).Amount(100).Limit(4)),
              Chosen({2, 1, 1}, "971A3"));
    // In order: ten notes of 10 (971A3), ..., at last five coins of 20 (971A4).
    EXPECT_EQ(Pay(Table().Bill(10, 10).Bill(50, 1).Coin(20, 5).Amount(100).Limit(4)),
              Chosen({1, 1, 2}, "971A4"));
}

TEST(CalcEqualNotes, FailsWithItsOwnCodeOverThoseOfRefusals) {
    EXPECT_EQ(Pay(SmallFirstOfThree().Limit(1)), kNotDispensed);
    EXPECT_EQ(Pay(SmallFirst().Limit(1)), kNotDispensed);
}

TEST(CalcEqualNotes, PaysTheMostEqualCombinationBelowTheAmount) {
    const Table table = Table().Bill(50, 10).Bill(20, 10).Amount(135);
    EXPECT_EQ(Pay(table), kNotDispensed);
    EXPECT_EQ(Pay(Table(table).Partial()), Chosen({2, 1}));  // not 1 and 4, which pays more
    EXPECT_EQ(Pay(Table(table).Partial(2)), kNotDispensed);
}

TEST(CalcEqualNotes, PrefersPayingNothingWhenThatIsMoreEqual) {
    EXPECT_EQ(Pay(SmallFirstOfThree().Amount(105).Partial()), Chosen({0, 0, 0}));
    EXPECT_EQ(Pay(SmallFirstOfThree().Amount(105).Limit(2).Partial()), Chosen({0, 0, 0}, "971A3"));
}

TEST(CalcEqualNotes, DoesNotFallBackToExactCombinations) {
    // Each combination is exact and over the limit; none falls short.
    EXPECT_EQ(Pay(Table().Bill(50, 9).Bill(20, 9).Bill(10, 9).Amount(50).Limit(0).Partial()),
              kNotDispensed);
}

TEST(CalcEqualNotes, FallsShortWhereExactCombinationsAreRefused) {
    // 3 x 20 is over the limit; 1 x 50 leaves 10.
    EXPECT_EQ(Pay(Table().Bill(50, 10).Bill(20, 10).Amount(60).Limit(2).Partial()),
              Chosen({1, 0}, "971A3"));
    EXPECT_EQ(Pay(Table().Bill(500, 1).Bill(50, 10).Bill(20, 10).Amount(60).Limit(2).Partial()),
              Chosen({0, 1, 0}, "971A3"));
}

TEST(CalcEqualNotes, FailsSilentlyWhenTheFirstUnitIsWorthNothing) {
    const Found silent = Failed(-306, "");
    EXPECT_EQ(Pay(Table().Bill(0, 9).Amount(0).Partial()), silent);
    EXPECT_EQ(Pay(Table().Bill(0, 9).Bill(50, 9).Amount(50)), silent);
    EXPECT_EQ(Pay(Table().Bill(0, 1).Bill(1, 1).Bill(2, 1).Bill(3, 1).Bill(4, 1).Bill(5, 1)),
              silent);
}

TEST(CalcEqualNotes, FailsAloudWhenALaterUnitIsWorthNothing) {
    EXPECT_EQ(Pay(Table().Bill(50, 9).Bill(0, 9).Amount(50)), kNotDispensed);
    EXPECT_EQ(Pay(Table().Bill(50, 9).Bill(20, 9).Bill(0, 9).Amount(50).Partial()), kNotDispensed);
}

TEST(CalcEqualNotes, HasNoRuleForSixUnitsOrNone) {
    Table six = Table().Bill(6, 9).Bill(5, 9).Bill(4, 9).Bill(3, 9).Bill(2, 9).Bill(1, 9);
    EXPECT_EQ(Pay(six.Amount(6)), Failed(-315, "97194"));
    six.table.usCount = std::uint16_t{0};
    EXPECT_EQ(Pay(six.Amount(6)), Failed(-315, "97194"));
}

TEST(CalcEqualNotes, LeavesOutLoopsThatStartAt2To31) {
    const Table first = Table().Bill(1, 0xFFFFFFFF).Bill(7, 5).Amount(0x80000000);
    EXPECT_EQ(Pay(first), kNotDispensed);
    EXPECT_EQ(Pay(Table(first).Partial()), kNotDispensed);
    // The loop of the second unit is left out for each count of the first: the 2^30 are not seen.
    EXPECT_EQ(
        Pay(Table().Bill(0x80000000, 1).Bill(1, 0xFFFFFFFF).Bill(0x40000000, 2).Amount(0x80000000)),
        Chosen({1, 0, 0}));
    EXPECT_EQ(
        Pay(Table().Bill(0x80000001, 1).Bill(1, 0xFFFFFFFF).Bill(0x40000000, 2).Amount(0x80000000)),
        kNotDispensed);
}

TEST(CalcEqualNotes, SearchesAsUsualWhenOnlyACountReaches2To31) {
    EXPECT_EQ(Pay(Table().Bill(50, 0x80000000).Bill(20, 10).Amount(100)), Chosen({2, 0}));
    EXPECT_EQ(Pay(Table().Bill(50, 10).Bill(20, 0xFFFFFFFF).Amount(100).Limit(4)),
              Chosen({2, 0}, "971A3"));
}

TEST(CalcEqualNotes, SkipsRefusalsOfThreeUnitsWhenACountReaches2To31Too) {
    EXPECT_EQ(Pay(Table().Bill(50, 10).Bill(20, 10).Bill(10, 0xFFFFFFFF).Amount(100).Limit(4)),
              Chosen({1, 2, 1}, "971A3"));
}

TEST(CalcEqualNotes, KeepsTheFirstOfEquallyUnevenOfNotesAndCoins) {
    // 0, 1, 0, 3 and 0, 0, 1, 3 are equally unequal, and nothing else that pays 29 is better.
    EXPECT_EQ(Pay(Table().Coin(10, 4).Coin(8, 1).Bill(8, 5).Coin(7, 6).Amount(29).Limit(6)),
              Chosen({0, 1, 0, 3}));
}

TEST(CalcEqualNotes, LeavesNoCodeWhenNothingWasRefused) {
    EXPECT_EQ(
        Pay(Table().Bill(6, 1).Bill(5, 1).Bill(11, 1).Coin(3, 3).Bill(5, 3).Amount(17).Limit(2)),
        Chosen({1, 0, 1, 0, 0}));
}

TEST(CalcEqualNotes, LeavesTheCodeOfTheLastRefusalBelowTheAmount) {
    // 3, 2, 0 makes 13 and 4, 1, 0 falls short of it: both are over the limit.
    EXPECT_EQ(Pay(Table().Bill(1, 4).Bill(5, 2).Bill(12, 0).Amount(13).Limit(4).Partial()),
              Chosen({1, 1, 0}, "971A3"));
}

TEST(CalcEqualNotes, TakesTheMostEqualOfLargeValues) {
    const Table table = Table().Bill(1000000, 10).Bill(500000, 10).Bill(250000, 10);
    EXPECT_EQ(Pay(Table(table).Amount(1750000)), Chosen({1, 1, 1}));
    EXPECT_EQ(Pay(Table(table).Amount(2000000)), Chosen({1, 1, 2}));
}

TEST(CalcEqualNotes, ComparesWrappedScoresOfThreeUnits) {
    // 6 * 26755^2 is 2^32 + 12854: all from the first unit beats what is really more equal.
    const Table table = Table().Bill(1, 100000).Bill(200, 10).Bill(5000, 1).Limit(65535);
    EXPECT_EQ(Pay(Table(table).Amount(26755)), Chosen({26755, 0, 0}));
    EXPECT_EQ(Pay(Table(table).Amount(26754)), Chosen({19754, 10, 1}));
}

TEST(CalcEqualNotes, ComparesWrappedScores) {
    // 2 * 46341^2 is 2^32 + 9266: as a score of 9266 it beats all the more equal combinations that
    // the hundred items of the second unit allow.
    EXPECT_EQ(Pay(Table().Bill(1, 100000).Bill(2, 100).Amount(46341).Limit(65535)),
              Chosen({46341, 0}));
    EXPECT_EQ(Pay(Table().Bill(1, 100000).Bill(2, 100).Amount(46340).Limit(65535)),
              Chosen({46140, 100}));
}

TEST(CalcEqualNotes, ComparesWrappedScoresOfManySmallItems) {
    // By true scores 9345, 2 and 7008 would be the most equal, and 12502, 2 and 9374; counts
    // far apart wrap to less.
    const Table table = Table().Bill(5, 40000).Bill(3, 2).Bill(2, 40000).Limit(60000);
    EXPECT_EQ(Pay(Table(table).Amount(60747)), Chosen({1213, 0, 27341}));
    EXPECT_EQ(Pay(Table(table).Amount(81264)), Chosen({934, 0, 38297}));
}

TEST(CalcEqualNotes, TakesAScoreJustBelow2To32ForALargeOne) {
    // 48511 and 4698 wrap to 2^32 - 6, the only other combination to 4112634.
    const Table table = Table().Bill(1, 48518).Bill(7, 4698).Bill(1000000, 1).Amount(81397);
    EXPECT_EQ(Pay(Table(table).Limit(65535)), Chosen({48518, 4697, 0}));
}

TEST(CalcEqualNotes, FindsUnequalCountsOfLargeValues) {
    // 3 0 0 alone makes the amount.
    const Table table = Table().Bill(500000000, 5).Bill(400000000, 2).Bill(300000000, 1);
    EXPECT_EQ(Pay(Table(table).Amount(1500000000)), Chosen({3, 0, 0}));
}

}  // namespace
