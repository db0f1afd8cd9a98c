#include <gtest/gtest.h>

#include "SearchCase.h"

namespace reference {
namespace {

SearchCase FirstFit(std::vector<Unit> units) {
    return SearchCase(Search::FirstFitEmptying, std::move(units));
}

TEST(ReferenceBudget, EndsASearch) {
    SearchCase lengthy(Search::MinimumNotes, {Bills(4, 3000), Bills(2, 3000), Bills(2, 1)});
    const Outcome outcome = lengthy.Amount(9001).Budget(1000).Run();
    EXPECT_FALSE(outcome.finished);
    EXPECT_EQ(1000U, outcome.steps);
}

TEST(ReferenceBudget, EndsASearchThatWouldNoticeLaterThatItNeverEnds) {
    SearchCase endless =
        FirstFit({Bills(50, 1000), Bills(20, 900), Bills(100, 100), Bills(200, 40)}).Amount(60);
    const Outcome outcome = endless.Budget(30000).Run();
    EXPECT_FALSE(outcome.finished);
    EXPECT_FALSE(outcome.neverEnds);
    EXPECT_EQ(30000U, outcome.steps);
}

TEST(ReferenceFirstFit, NoticesThatItSearchesForEver) {
    SearchCase endless = FirstFit({Bills(50, 10), Bills(20, 9), Bills(100, 5)}).Amount(35);
    const Outcome outcome = endless.Run();
    EXPECT_FALSE(outcome.finished);
    EXPECT_TRUE(outcome.neverEnds);
    EXPECT_EQ("", outcome.lastCode);
    EXPECT_TRUE(endless.Partial(1).Run().neverEnds);
}

TEST(ReferenceFirstFit, KeepsTheCodeOfTheLastRefusalWhenItSearchesForEver) {
    SearchCase endless = FirstFit({Bills(50, 9), Bills(20, 9), Coins(10, 9)}).Amount(90).Limit(0);
    const Outcome outcome = endless.Run();
    EXPECT_TRUE(outcome.neverEnds);
    EXPECT_EQ("971A3", outcome.lastCode);
}

}  // namespace
}  // namespace reference
