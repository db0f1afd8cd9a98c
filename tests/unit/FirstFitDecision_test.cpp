#include "FirstFitDecision.h"
#include "TableBuilder.h"

namespace {

using Ending = FirstFitDecision::Ending;

FirstFitDecision Decide(const Table& table) {
    return DecideFirstFit(SearchUnits(table.request, table.table));
}

void ExpectNever(const Table& table, const Counts& lastRefused) {
    const FirstFitDecision decision = Decide(table);
    EXPECT_EQ(Ending::Never, decision.ending);
    EXPECT_TRUE(decision.refusal.isThere);
    EXPECT_EQ(lastRefused, decision.refusal.combination);
}

// The refused combinations of whole cycles were found by plain loops of 2^32 lines.

TEST(DecideFirstFit, KnowsThatTheLoopsNeverEnd) {
    const FirstFitDecision decision = Decide(
        Table().Bill(50, 1000).Bill(20, 900).Bill(100, 100).Bill(200, 40).Amount(60).Limit(40));
    EXPECT_EQ(Ending::Never, decision.ending);
    EXPECT_EQ(Ending::Never, Decide(Table().Bill(50, 9).Bill(20, 9).Bill(10, 9).Amount(37)).ending);
}

TEST(DecideFirstFit, FindsWhatTheLoopsRefuseLastBeforeTheyRepeat) {
    ExpectNever(Table().Bill(50, 24).Coin(10, 19).Coin(5, 30).Amount(1370).Limit(20),
                {25, 0xFFFFFFFD, 30});
    ExpectNever(Table().Coin(500, 51).Bill(200, 19).Bill(5, 32).Amount(1455).Limit(10),
                {42949668, 19, 27});
    ExpectNever(
        Table().Bill(100, 23).Coin(50, 45).Bill(20, 56).Coin(10, 13).Bill(5, 12).Amount(1395).Limit(
            10),
        {13, 1, 1073741817, 13, 11});
}

TEST(DecideFirstFit, FindsWhatIsRefusedLastFarFromTheEndsOfTheCycle) {
    ExpectNever(Table().Bill(2071890431, 1).Bill(1173667, 4).Bill(1187, 1).Amount(1).Limit(0),
                {486699822, 4, 1});
    ExpectNever(Table()
                    .Bill(176, 7)
                    .Bill(1041157637, 1)
                    .Bill(607530713, 0)
                    .Bill(189114068, 2)
                    .Amount(13949)
                    .Limit(5),
                {7, 3336961417, 0, 0});
}

void ExpectFound(const Table& table, const Counts& found) {
    const FirstFitDecision decision = Decide(table);
    EXPECT_EQ(Ending::Found, decision.ending);
    EXPECT_EQ(found, decision.found);
}

TEST(DecideFirstFit, TakesTheGreedyCombinationWithinTheLimit) {
    ExpectFound(Table().Bill(50, 9).Bill(20, 9).Bill(10, 9).Amount(80), {1, 1, 1});
}

TEST(DecideFirstFit, LooksAtTheLineOnWhichAllOtherItemsMakeUpForTheOuterUnit) {
    // 3 lines on, the outer unit has run from 1 to -2, and the others give the two that they hold.
    ExpectFound(Table().Bill(1, 1).Bill(10, 1).Bill(10, 1).Amount(18).Limit(0), {0xFFFFFFFE, 1, 1});
}

TEST(DecideFirstFit, LooksAtTheFirstOfTheLastLinesThatCanBeWithinTheLimit) {
    // The outer unit takes the limit and as many items as the next one can run past 0.
    const Table table =
        Table().Bill(716000000, 1).Bill(200000, 1).Coin(100000, 4).Amount(1032704).Limit(4);
    ExpectFound(table, {6, 0xFFFFFFFE, 4});
    EXPECT_EQ((Counts{6, 0xFFFFFFFF, 2}), Decide(table).refusal.combination);
}

TEST(DecideFirstFit, RemembersTheLastRefusedOfTwoUnitsThatFallShort) {
    const Table table = Table().Bill(20, 10).Bill(50, 10).Amount(135).Limit(3).Partial();
    ExpectFound(table, {2, 1});
    EXPECT_EQ((Counts{3, 1}), Decide(table).refusal.combination);
}

TEST(DecideFirstFit, GoesOnToTheStepOnWhichNothingIsTaken) {
    const Table table = Table().Bill(2, 1).Bill(4, 1).Amount(3).Limit(0).Partial();
    ExpectFound(table, {0, 0});
    EXPECT_EQ((Counts{1, 0}), Decide(table).refusal.combination);
}

TEST(DecideFirstFit, GoesOnToTheLineOnWhichCoinsOfTheOuterUnitAreWithinTheLimit) {
    const Table table = Table().Coin(10, 5).Bill(20, 0).Bill(40, 3).Amount(60).Limit(2);
    ExpectFound(table, {2, 0, 1});
    EXPECT_EQ((Counts{4, 0xFFFFFFFB, 3}), Decide(table).refusal.combination);
}

TEST(DecideFirstFit, GoesOnToTheLineOnWhichMoreThanTheLastUnitHoldsIsPaid) {
    const Table table = Table().Bill(10, 50).Bill(20, 9).Bill(50, 1).Amount(300).Limit(20);
    ExpectFound(table, {13, 6, 1});
    EXPECT_EQ((Counts{14, 8, 0}), Decide(table).refusal.combination);
}

TEST(DecideFirstFit, EndsWithTwoUnitsWhereAllThatFallShortAreOverTheLimit) {
    // Four items are over the limit by four steps. Two steps on the second unit is short, and four
    // steps on what is left to it has wrapped.
    EXPECT_EQ(
        Ending::Failed,
        Decide(
            Table().Bill(0x3FFFFFFF, 2).Bill(0x40000000, 2).Amount(0xFFFFFFFF).Limit(0).Partial())
            .ending);
}

TEST(DecideFirstFit, TellsWhereNothingAtAllIsRefused) {
    // All values are even, and so is every rest that has wrapped.
    const FirstFitDecision decision =
        Decide(Table().Bill(50, 9).Bill(20, 9).Bill(10, 9).Amount(37).Limit(0));
    EXPECT_EQ(Ending::Never, decision.ending);
    EXPECT_FALSE(decision.refusal.isThere);
}

TEST(DecideFirstFit, EndsWithTwoUnits) {
    EXPECT_EQ(Ending::Failed, Decide(Table().Bill(50, 10).Bill(20, 10).Amount(65)).ending);
    EXPECT_EQ(Ending::Found, Decide(Table().Bill(50, 10).Bill(20, 10).Amount(30)).ending);
    EXPECT_EQ(Ending::Found, Decide(Table().Bill(50, 10).Bill(20, 10).Amount(65).Partial()).ending);
}

TEST(DecideFirstFit, LeavesToTheLoopsWhatMayWrapTwice) {
    EXPECT_EQ(
        Ending::Unknown,
        Decide(Table().Bill(5, 10).Bill(1, 10).Bill(1000000, 5000).Amount(7777).Limit(0)).ending);
    // One item more of the last unit than there is, and one of the unit before: 2^32 at most.
    const auto endingFor = [](std::uint32_t innerValue) {
        return Decide(
                   Table().Bill(7, 1).Bill(innerValue, 1).Bill(0x10000000, 14).Amount(7).Limit(0))
            .ending;
    };
    EXPECT_NE(Ending::Unknown, endingFor(0x10000000));
    EXPECT_EQ(Ending::Unknown, endingFor(0x10000001));
    // All items together, those below 0 and the limit too: less than 2^31.
    const std::uint32_t most = 0x7FFFFFFF - 2 - 2 - 2;
    EXPECT_NE(Ending::Unknown,
              Decide(Table().Bill(1, most).Bill(1, 1).Bill(1, 1).Amount(7).Limit(0)).ending);
    EXPECT_EQ(Ending::Unknown,
              Decide(Table().Bill(1, most + 1).Bill(1, 1).Bill(1, 1).Amount(7).Limit(0)).ending);
}

}  // namespace
