#include <gtest/gtest.h>

#include "SearchCase.h"

namespace reference {
namespace {

SearchCase FirstFit(std::vector<Unit> units) {
    return SearchCase(Search::FirstFitEmptying, std::move(units));
}

TEST(ReferenceFirstFit, TakesTheFirstExactCombination) {
    FirstFit({Bills(50, 10), Bills(20, 10)}).Amount(130).Pays({1, 4});
    FirstFit({Bills(50, 10), Bills(20, 10)}).Amount(60).Pays({0, 3});
    FirstFit({Bills(50, 10), Bills(20, 10)}).Amount(0).Pays({0, 0});
    FirstFit({Bills(10, 10), Bills(50, 10), Bills(20, 10)}).Amount(170).Pays({10, 1, 1});
}

TEST(ReferenceFirstFit, FallsBackWithTwoUnitsOnly) {
    FirstFit({Bills(50, 10), Bills(20, 10)}).Amount(135).Partial(1).Pays({2, 1});
    FirstFit({Bills(50, 10), Bills(20, 10)}).Amount(135).Partial(0).Fails(-306, "971A2");
    FirstFit({Bills(50, 10), Bills(20, 10)}).Amount(135).Partial(2).Fails(-306, "971A2");
}

TEST(ReferenceFirstFit, AcceptsAWrappedCombination) {
    FirstFit({Bills(50, 10), Bills(20, 10)}).Amount(30).Pays({4294967295U, 4});
    FirstFit({Bills(100, 400), Bills(50, 400), Bills(20, 400)})
        .Amount(110)
        .Pays({1, 4294967295U, 3});
}

TEST(ReferenceFirstFit, EndsWithTwoUnitsOnceTheWrappedRestIsTooMuch) {
    // After (0, 3) come wrapped counts; the rest reaches 220 before it makes 65.
    FirstFit({Bills(50, 10), Bills(20, 10)}).Amount(65).Fails(-306, "971A2");
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

TEST(ReferenceFirstFit, IsGivenUpLikeEverySearch) {
    SearchCase endless =
        FirstFit({Bills(50, 1000), Bills(20, 900), Bills(100, 100), Bills(200, 40)}).Amount(60);
    const Outcome outcome = endless.Budget(30000).Run();
    EXPECT_FALSE(outcome.finished);
    EXPECT_FALSE(outcome.neverEnds);
    EXPECT_EQ(30000U, outcome.steps);
}

TEST(ReferenceFirstFit, GoesOnAfterARefusal) {
    // (0, 5) is refused and leaves its code; (2, 4) is next.
    FirstFit({Bills(10, 10), Bills(20, 10)}).Amount(100).Limit(6).Pays({2, 4}, "971A3");
    FirstFit({Coins(10, 10), Bills(20, 10)}).Amount(100).Limit(9).Pays({8, 1}, "971A4");
}

TEST(ReferenceFirstFit, FallsBackPastARefusal) {
    // Short of 95: (4, 0), (3, 0) and (2, 1) are refused, (1, 1) is not.
    FirstFit({Bills(20, 10), Bills(50, 10)}).Amount(95).Partial(1).Limit(2).Pays({1, 1}, "971A3");
    FirstFit({Bills(20, 10), Bills(50, 10)}).Amount(95).Partial(1).Limit(4).Pays({4, 0});
}

TEST(ReferenceFirstFit, PaysFromOneUnit) {
    FirstFit({Bills(20, 10)}).Amount(60).Pays({3});
    FirstFit({Bills(20, 10)}).Amount(50).Fails(-306, "971A2");
    FirstFit({Bills(20, 10)}).Amount(50).Partial(1).Pays({2});
    FirstFit({Bills(20, 10)}).Amount(100).Limit(4).Fails(-306, "971A2");
}

TEST(ReferenceFirstFit, FailsSilentlyOnAFirstValueOfZero) {
    FirstFit({Bills(0, 5), Bills(20, 5)}).Amount(20).Fails(-306, "");
    std::vector<Unit> six = SixUnits();
    six[0].value = 0;
    FirstFit(six).Amount(20).Fails(-306, "");
}

TEST(ReferenceFirstFit, RefusesALaterValueOfZeroAfterTheUnitNumber) {
    FirstFit({Bills(20, 5), {0, 5, 7}}).Amount(20).Fails(-306, "971A2");
    std::vector<Unit> six = SixUnits();
    six[5].value = 0;
    FirstFit(six).Amount(20).Fails(-315, "97194");
    FirstFit(SixUnits()).Amount(20).Fails(-315, "97194");
}

}  // namespace
}  // namespace reference
