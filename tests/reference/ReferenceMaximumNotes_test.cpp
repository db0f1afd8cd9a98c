#include <gtest/gtest.h>

#include "SearchCase.h"

namespace reference {
namespace {

SearchCase Maximum(std::vector<Unit> units) {
    return SearchCase(Search::MaximumNotes, std::move(units));
}

TEST(ReferenceMaximumNotes, TakesTheMostOfTheFirstUnit) {
    Maximum({Bills(10, 100), Bills(50, 100)}).Amount(100).Limit(10).Pays({10, 0});
    Maximum({Bills(10, 100), Bills(50, 100)}).Amount(100).Limit(5).Pays({0, 2});
    Maximum({Bills(10, 4), Bills(50, 100)}).Amount(100).Pays({0, 2});
    Maximum({Bills(5, 3), Bills(10, 3), Bills(50, 3)}).Amount(100).Pays({0, 0, 2});
    Maximum({Bills(5, 4), Bills(10, 3), Bills(50, 3)}).Amount(100).Pays({4, 3, 1});
}

TEST(ReferenceMaximumNotes, PassesOverSumsAboveTheLimitWithoutACode) {
    // Six items in all, though bank notes and coins stay within 5 each.
    Maximum({Coins(10, 5), Bills(50, 5)}).Amount(100).Limit(5).Pays({0, 2});
    Maximum({Coins(10, 5), Bills(25, 2), Bills(50, 5)}).Amount(100).Limit(4).Pays({0, 2, 1});
}

TEST(ReferenceMaximumNotes, DoesNotCapTheFirstOfTwoUnitsByTheLimit) {
    // 12 turns, from 12 notes down to 1; a cap at 3 would leave 4 turns at most.
    const Outcome outcome = Maximum({Bills(1, 12), Bills(11, 9)}).Amount(12).Limit(3).Run();
    EXPECT_EQ(0, outcome.returned);
    EXPECT_EQ(12U, outcome.steps);
}

TEST(ReferenceMaximumNotes, CapsEveryLoopByTheLimitWithMoreUnits) {
    // Turns: 3, 2 and 1 ones, the inner loop of the elevens once each but for (1, 1), accepted.
    const Outcome outcome =
        Maximum({Bills(1, 12), Bills(11, 9), Bills(100, 9)}).Amount(12).Limit(3).Run();
    EXPECT_EQ(0, outcome.returned);
    EXPECT_EQ(6U, outcome.steps);
}

TEST(ReferenceMaximumNotes, FillsGreedilyWhenItMayPayLess) {
    Maximum({Bills(10, 3), Bills(50, 9)}).Amount(145).Fails(-306, "971A2");
    Maximum({Bills(10, 3), Bills(50, 9)}).Amount(145).Partial(1).Pays({3, 2});
    Maximum({Bills(10, 3), Bills(50, 9)}).Amount(145).Partial(2).Fails(-306, "971A2");
    Maximum({Bills(10, 3), Bills(50, 9)}).Amount(145).Partial(1).Limit(4).Fails(-307, "971A3");
}

TEST(ReferenceMaximumNotes, PaysFromOneUnitWithinTheLimit) {
    Maximum({Bills(20, 10)}).Amount(60).Limit(3).Pays({3});
    Maximum({Bills(20, 10)}).Amount(60).Limit(2).Fails(-307, "971A3");
    Maximum({Coins(20, 10)}).Amount(60).Limit(2).Fails(-307, "971A4");
    Maximum({Bills(20, 10)}).Amount(70).Fails(-306, "971A2");
    Maximum({Bills(20, 10)}).Amount(70).Partial(1).Pays({3});
    Maximum({Bills(20, 10)}).Amount(70).Partial(1).Limit(2).Fails(-307, "971A3");
}

TEST(ReferenceMaximumNotes, EndsWithTwoUnitsOnceTheLastUnitIsShort) {
    Maximum({Bills(10, 9), Bills(50, 1)}).Amount(100).Limit(4).Fails(-306, "971A2");
}

TEST(ReferenceMaximumNotes, HandlesOneToFiveUnits) {
    Maximum(SixUnits()).Amount(20).Fails(-315, "97194");
    Maximum({}).Amount(20).Fails(-315, "97194");
    Maximum({Bills(1, 1), Bills(2, 1), Bills(5, 1), Bills(10, 1), Bills(20, 1)})
        .Amount(38)
        .Pays({1, 1, 1, 1, 1});
}

TEST(ReferenceMaximumNotes, RefusesAValueOfZeroAfterTheUnitNumber) {
    Maximum({{0, 5, 7}, Bills(20, 5)}).Amount(20).Fails(-306, "971A2");
    Maximum({{0, 5, 7}}).Amount(0).Fails(-306, "971A2");
    std::vector<Unit> six = SixUnits();
    six[0].value = 0;
    Maximum(six).Amount(20).Fails(-315, "97194");
}

}  // namespace
}  // namespace reference
