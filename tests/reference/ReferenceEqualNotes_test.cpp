#include <gtest/gtest.h>

#include "SearchCase.h"

namespace reference {
namespace {

SearchCase Equal(std::vector<Unit> units) {
    return SearchCase(Search::EqualNotes, std::move(units));
}

TEST(ReferenceEqualNotes, TakesTheSmallestSpread) {
    Equal({Bills(50, 10), Bills(20, 10)}).Amount(100).Pays({2, 0});
    Equal({Bills(50, 9), Bills(20, 9), Bills(10, 9)}).Amount(160).Pays({2, 2, 2});
    Equal({Bills(50, 9), Bills(20, 9), Bills(10, 9), Bills(5, 9)}).Amount(85).Pays({1, 1, 1, 1});
}

TEST(ReferenceEqualNotes, KeepsTheEarlierOfEqualSpreads) {
    // (1, 0) and (0, 1) spread alike.
    Equal({Bills(10, 9), Bills(10, 9)}).Amount(10).Pays({1, 0});
    Equal({Bills(10, 9), Bills(10, 9), Bills(10, 9)}).Amount(10).Pays({1, 0, 0});
}

TEST(ReferenceEqualNotes, EndsWithTwoUnitsOnceTheLastUnitIsShort) {
    Equal({Bills(50, 10), Bills(20, 2)}).Amount(110).Fails(-306, "971A2");
}

TEST(ReferenceEqualNotes, EndsWithTwoUnitsOnceACombinationIsRefused) {
    // (10, 0) is refused; (9, 10) and so on would be too; (0, 5) of the second table would pass
    // but comes later.
    Equal({Bills(10, 10), Bills(20, 10)}).Amount(100).Limit(6).Fails(-306, "971A2");
    Equal({Bills(20, 10), Bills(10, 10)}).Amount(100).Limit(6).Pays({4, 2}, "971A3");
}

TEST(ReferenceEqualNotes, GoesOnWithThreeUnitsAfterARefusal) {
    Equal({Bills(10, 10), Bills(20, 10), Bills(7, 1)})
        .Amount(100)
        .Limit(6)
        .Pays({2, 4, 0}, "971A3");
}

TEST(ReferenceEqualNotes, LeavesTheCodeOfTheLastRefusal) {
    Equal({Bills(50, 4), Bills(20, 9), Coins(1, 99)}).Amount(100).Limit(5).Pays({2, 0, 0}, "971A4");
}

TEST(ReferenceEqualNotes, TakesTheMostEqualShortCombinationWhenItMayPayLess) {
    // Short of 135: (2, 1), (1, 4), (0, 6); spreads 1, 9, 36.
    Equal({Bills(50, 10), Bills(20, 10)}).Amount(135).Partial(1).Pays({2, 1});
    Equal({Bills(50, 10), Bills(20, 10)}).Amount(135).Partial(2).Fails(-306, "971A2");
    Equal({Bills(50, 10), Bills(20, 10)}).Amount(135).Partial(0).Fails(-306, "971A2");
}

TEST(ReferenceEqualNotes, FailsWhenNothingShortIsWithinTheLimit) {
    Equal({Bills(50, 10), Bills(20, 10)}).Amount(135).Partial(1).Limit(2).Fails(-306, "971A2");
}

TEST(ReferenceEqualNotes, PaysFromOneUnit) {
    Equal({Bills(20, 10)}).Amount(60).Pays({3});
    Equal({Bills(20, 10)}).Amount(70).Fails(-306, "971A2");
    Equal({Bills(20, 10)}).Amount(70).Partial(1).Pays({3});
    Equal({Bills(20, 10)}).Amount(10).Partial(1).Pays({0});
    Equal({Bills(20, 10)}).Amount(60).Limit(2).Fails(-306, "971A2");
    Equal({Coins(20, 10)}).Amount(70).Partial(1).Limit(2).Fails(-306, "971A2");
}

TEST(ReferenceEqualNotes, FailsSilentlyOnAFirstValueOfZero) {
    Equal({Bills(0, 5), Bills(20, 5)}).Amount(20).Fails(-306, "");
    std::vector<Unit> six = SixUnits();
    six[0].value = 0;
    Equal(six).Amount(20).Fails(-306, "");
    Equal({}).Amount(20).Fails(-306, "");
}

TEST(ReferenceEqualNotes, RefusesALaterValueOfZeroAfterTheUnitNumber) {
    Equal({Bills(20, 5), {0, 5, 7}}).Amount(20).Fails(-306, "971A2");
    std::vector<Unit> six = SixUnits();
    six[5].value = 0;
    Equal(six).Amount(20).Fails(-315, "97194");
    Equal(SixUnits()).Amount(100).Fails(-315, "97194");
}

TEST(ReferenceEqualNotes, SkipsALoopThatWouldStartAtTwoToThe31) {
    Equal({Bills(1, 0xFFFFFFFF), Bills(1, 9)}).Amount(0x80000000).Fails(-306, "971A2");
    Equal({Bills(1, 0xFFFFFFFF), Bills(1, 9)}).Amount(0x80000000).Partial(1).Fails(-306, "971A2");
}

TEST(ReferenceEqualNotes, ComparesWrappedSpreads) {
    // (46341, 0) spreads by 2 * 46341^2, which wraps to 9266; (341, 2) by 229842.
    Equal({Bills(1, 60000), Bills(23000, 9)}).Amount(46341).Pays({46341, 0});
}

}  // namespace
}  // namespace reference
