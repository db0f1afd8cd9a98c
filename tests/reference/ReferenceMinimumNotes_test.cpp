#include <gtest/gtest.h>

#include "SearchCase.h"

namespace reference {
namespace {

SearchCase Minimum(std::vector<Unit> units) {
    return SearchCase(Search::MinimumNotes, std::move(units));
}

TEST(ReferenceMinimumNotes, PaysFromOneUnit) {
    Minimum({Bills(20, 10)}).Amount(60).Pays({3});
    Minimum({Bills(20, 10)}).Amount(70).Fails(-306, "971A2");
    Minimum({Bills(20, 10)}).Amount(70).Partial(1).Pays({3});
    Minimum({Bills(20, 10)}).Amount(70).Partial(2).Fails(-306, "971A2");
    Minimum({Bills(20, 2)}).Amount(60).Fails(-306, "971A2");
    Minimum({Bills(20, 2)}).Amount(60).Partial(1).Pays({2});
    Minimum({Bills(20, 2)}).Amount(19).Partial(1).Pays({0});
}

TEST(ReferenceMinimumNotes, TakesTheLargestNotesFirst) {
    Minimum({Bills(50, 10), Bills(20, 10)}).Amount(60).Pays({0, 3});
    Minimum({Bills(50, 10), Bills(20, 10)}).Amount(110).Pays({1, 3});
    Minimum({Bills(50, 10), Bills(20, 10)}).Amount(100).Pays({2, 0});
    Minimum({Bills(50, 9), Bills(20, 9), Bills(10, 9)}).Amount(80).Pays({1, 1, 1});
}

TEST(ReferenceMinimumNotes, FillsGreedilyWhenItMayPayLess) {
    Minimum({Bills(50, 10), Bills(20, 2)}).Amount(110).Fails(-306, "971A2");
    Minimum({Bills(50, 10), Bills(20, 2)}).Amount(110).Partial(1).Pays({2, 0});
}

TEST(ReferenceMinimumNotes, RefusesASingleCombinationOverTheLimit) {
    Minimum({Bills(10, 100)}).Amount(410).Limit(41).Pays({41});
    Minimum({Bills(10, 100)}).Amount(410).Limit(40).Fails(-307, "971A3");
    Minimum({Coins(10, 100)}).Amount(410).Limit(40).Fails(-307, "971A4");
    // No second combination is tried: (0, 2, 0) would stay within the limit of 2.
    Minimum({Bills(30, 1), Bills(20, 2), Bills(5, 9)}).Amount(40).Limit(2).Fails(-307, "971A3");
}

TEST(ReferenceMinimumNotes, TotalsNotesAndCoinsApart) {
    Minimum({Bills(50, 9), Coins(1, 40)}).Amount(60).Limit(10).Pays({1, 10});
    Minimum({Bills(50, 9), Coins(1, 40)}).Amount(61).Limit(10).Fails(-307, "971A4");
    Minimum({{50, 40, 3}, {10, 40, 7}}).Amount(90).Limit(4).Fails(-307, "971A3");
    Minimum({{50, 40, 5}, {10, 40, 4}}).Amount(90).Limit(4).Fails(-307, "971A4");
    Minimum({Bills(50, 40), Coins(10, 40)}).Amount(0).Limit(0).Pays({0, 0});
}

TEST(ReferenceMinimumNotes, NamesOnlyTheNotesWhenBothTotalsAreTooHigh) {
    Minimum({Bills(50, 9), Coins(7, 9)}).Amount(450 + 63).Limit(8).Fails(-307, "971A3");
}

TEST(ReferenceMinimumNotes, HandlesOneToFiveUnits) {
    Minimum({}).Amount(60).Fails(-315, "97194");
    Minimum(SixUnits()).Amount(60).Fails(-315, "97194");
    std::vector<Unit> five = SixUnits();
    five.pop_back();
    Minimum(five).Amount(185).Pays({1, 1, 1, 1, 1});
}

TEST(ReferenceMinimumNotes, RefusesAValueOfZeroAfterTheUnitNumber) {
    Minimum({Bills(0, 5)}).Fails(-306, "971A2");
    Minimum({Bills(50, 5), {0, 5, 7}}).Amount(50).Fails(-306, "971A2");
    std::vector<Unit> six = SixUnits();
    six[0].value = 0;
    Minimum(six).Amount(50).Fails(-315, "97194");
}

TEST(ReferenceMinimumNotes, ComparesTheLastCountAsSigned) {
    // 2^31 ones needed: as a signed number that is not more than the 5 there are.
    Minimum({Bills(0xFFFFFFF0, 1), Bills(1, 5)}).Amount(0x80000000).Limit(5).Fails(-307, "971A3");
    Minimum({Bills(0xFFFFFFF0, 1), Bills(1, 5)}).Amount(0x7FFFFFFF).Fails(-306, "971A2");
}

TEST(ReferenceMinimumNotes, GivesUpWhenTheBudgetIsSpent) {
    SearchCase endless = Minimum({Bills(4, 3000), Bills(2, 3000), Bills(2, 1)}).Amount(9001);
    const Outcome outcome = endless.Budget(1000).Run();
    EXPECT_FALSE(outcome.finished);
    EXPECT_EQ(1000U, outcome.steps);
}

}  // namespace
}  // namespace reference
