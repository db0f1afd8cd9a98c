#include <gtest/gtest.h>

#include "SearchCase.h"

namespace reference {
namespace {

SearchCase Emptying(std::vector<Unit> units) {
    return SearchCase(Search::EqualEmptying, std::move(units));
}

TEST(ReferenceEqualEmptying, TakesTheMostEvenShares) {
    Emptying({Bills(50, 100), Bills(20, 50)}).Amount(200).Pays({4, 0});
    Emptying({Bills(50, 20), Bills(20, 20), Bills(10, 40)}).Amount(100).Pays({1, 1, 3});
}

TEST(ReferenceEqualEmptying, FallsBackToShortCombinations) {
    Emptying({Bills(50, 10), Bills(20, 10)}).Amount(135).Partial(1).Pays({2, 1});
    Emptying({Bills(50, 10), Bills(20, 10)}).Amount(135).Partial(0).Fails(-306, "971A2");
    Emptying({Bills(50, 10), Bills(20, 10)}).Amount(135).Partial(2).Fails(-306, "971A2");
}

TEST(ReferenceEqualEmptying, PrefersEvenSharesToALargerPayment) {
    // (0, 0, 0) would be the most even; it is not met, since the last unit takes what fits.
    Emptying({Bills(50, 9), Bills(20, 9), Bills(15, 9)}).Amount(86).Partial(1).Pays({1, 1, 1});
}

TEST(ReferenceEqualEmptying, EndsWithTwoUnitsOnceACombinationIsRefused) {
    Emptying({Bills(50, 10), Bills(20, 10)}).Amount(140).Limit(5).Pays({2, 2}, "971A3");
    Emptying({Bills(10, 10), Bills(20, 10)}).Amount(100).Limit(6).Fails(-306, "971A2");
}

TEST(ReferenceEqualEmptying, GoesOnWithThreeUnitsAfterARefusal) {
    Emptying({Bills(10, 10), Bills(20, 10), Bills(7, 1)})
        .Amount(100)
        .Limit(6)
        .Pays({2, 4, 0}, "971A3");
}

TEST(ReferenceEqualEmptying, KeepsTheEarlierOfEqualScores) {
    Emptying({Bills(10, 9), Bills(10, 9)}).Amount(10).Pays({1, 0});
    Emptying({Bills(10, 9), Bills(10, 9), Bills(10, 9)}).Amount(10).Pays({1, 0, 0});
}

TEST(ReferenceEqualEmptying, PaysFromOneUnit) {
    Emptying({Bills(20, 10)}).Amount(50).Fails(-306, "971A2");
    Emptying({Bills(20, 10)}).Amount(50).Partial(1).Pays({2});
    Emptying({Bills(20, 2)}).Amount(100).Partial(1).Pays({2});
    Emptying({Bills(20, 10)}).Amount(100).Limit(4).Fails(-306, "971A2");
}

TEST(ReferenceEqualEmptying, HandlesOneToFiveUnits) {
    Emptying(SixUnits()).Amount(20).Fails(-315, "97194");
    Emptying({}).Amount(20).Fails(-315, "97194");
    std::vector<Unit> five = SixUnits();
    five.pop_back();
    Emptying(five).Amount(185).Pays({1, 1, 1, 1, 1});
}

TEST(ReferenceEqualEmptying, RefusesAValueOfZeroAfterTheUnitNumber) {
    Emptying({Bills(0, 5)}).Amount(20).Fails(-306, "971A2");
    Emptying({Bills(0, 5), Bills(20, 5)}).Amount(20).Fails(-306, "971A2");
    Emptying({Bills(20, 5), {0, 5, 7}}).Amount(20).Fails(-306, "971A2");
    std::vector<Unit> six = SixUnits();
    six[0].value = 0;
    Emptying(six).Amount(20).Fails(-315, "97194");
}

TEST(ReferenceEqualEmptying, SkipsALoopThatWouldStartAtTwoToThe31) {
    Emptying({Bills(1, 0xFFFFFFFF), Bills(1, 9)}).Amount(0x80000000).Fails(-306, "971A2");
    Emptying({Bills(1, 0xFFFFFFFF), Bills(1, 9)})
        .Amount(0x80000000)
        .Partial(1)
        .Fails(-306, "971A2");
}

TEST(ReferenceEqualEmptying, ComparesWrappedScores) {
    // 65536 of each unit's 2^16 notes: the terms of (1, 0) weigh 2^16 and of (0, 2) wrap to 2^17.
    Emptying({Bills(2, 65536), Bills(1, 65536)}).Amount(2).Pays({1, 0});
    // With three units of 2^16 every product wraps to 0: the first combination stays.
    Emptying({Bills(50, 65536), Bills(20, 65536), Bills(10, 65536)}).Amount(100).Pays({2, 0, 0});
}

}  // namespace
}  // namespace reference
