#include <gtest/gtest.h>

#include "SearchCase.h"

namespace reference {
namespace {

// Tables that no request leads to, or none of the vectors: a search is called with them directly.

SearchCase Asked(Search search, std::vector<Unit> units) {
    return SearchCase(search, std::move(units));
}

std::vector<Unit> SixUnitsWith(std::size_t worthless) {
    std::vector<Unit> six = SixUnits();
    six[worthless].value = 0;
    return six;
}

/// Three ask for the number of units first, two for the first unit's value.
constexpr Search kCountingUnitsFirst[] = {Search::MinimumNotes, Search::EqualEmptying,
                                          Search::MaximumNotes};
constexpr Search kReadingTheFirstValueFirst[] = {Search::EqualNotes, Search::FirstFitEmptying};

TEST(ReferenceTables, OfNoUnitOrOfSixAreRefused) {
    for (const Search search : kCountingUnitsFirst) {
        Asked(search, {}).Amount(20).Fails(-315, "97194");
        Asked(search, SixUnits()).Amount(20).Fails(-315, "97194");
        Asked(search, SixUnitsWith(0)).Amount(20).Fails(-315, "97194");
    }
    for (const Search search : kReadingTheFirstValueFirst) {
        Asked(search, {}).Amount(20).Fails(-306, "");
        Asked(search, SixUnits()).Amount(20).Fails(-315, "97194");
        Asked(search, SixUnitsWith(0)).Amount(20).Fails(-306, "");
        Asked(search, SixUnitsWith(5)).Amount(20).Fails(-315, "97194");
    }
}

TEST(ReferenceTables, WithAWorthlessUnitAreRefused) {
    for (const Search search : kCountingUnitsFirst) {
        Asked(search, {Bills(0, 5)}).Amount(20).Fails(-306, "971A2");
        Asked(search, {Bills(0, 5), Bills(20, 5)}).Amount(20).Fails(-306, "971A2");
        Asked(search, {Bills(20, 5), {0, 5, 7}}).Amount(20).Fails(-306, "971A2");
    }
    for (const Search search : kReadingTheFirstValueFirst) {
        Asked(search, {Bills(0, 5), Bills(20, 5)}).Amount(20).Fails(-306, "");
        Asked(search, {Bills(20, 5), {0, 5, 7}}).Amount(20).Fails(-306, "971A2");
    }
}

TEST(ReferenceTables, SkipALoopThatWouldStartAtTwoToThe31) {
    for (const Search search : {Search::EqualNotes, Search::EqualEmptying}) {
        SearchCase ones = Asked(search, {Bills(1, 0xFFFFFFFF), Bills(1, 9)}).Amount(0x80000000);
        ones.Fails(-306, "971A2");
        ones.Partial(1).Fails(-306, "971A2");
    }
}

TEST(ReferenceTables, CompareTheLastCountAsSigned) {
    // 2^31 ones needed: as a signed number that is not more than the 5 there are.
    const std::vector<Unit> units{Bills(0xFFFFFFF0, 1), Bills(1, 5)};
    Asked(Search::MinimumNotes, units).Amount(0x80000000).Limit(5).Fails(-307, "971A3");
    Asked(Search::MinimumNotes, units).Amount(0x7FFFFFFF).Fails(-306, "971A2");
}

}  // namespace
}  // namespace reference
