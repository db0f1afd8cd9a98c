#include "RequestBuilder.h"
#include "TestHost.h"

namespace {

using Numbers = std::vector<unsigned>;
using Routine = void (CMixAlgorithm::*)(const MixRequest&, LcuTable&) const noexcept;

constexpr Routine kByDenomination = &CMixAlgorithm::SortLCUByDenomination;
constexpr Routine kByTotal = &CMixAlgorithm::SortLCUByTotalAmount;
constexpr Routine kWithoutLow = &CMixAlgorithm::SortLCUByDenominationWithoutLOWCST;
constexpr Routine kWithoutMinimum = &CMixAlgorithm::SortLCUByDenomWithoutCSTBelowCSTMin;
constexpr Routine kTotalWithoutMinimum = &CMixAlgorithm::SortLCUByTotalAmountWithoutCSTBelowCSTMin;
constexpr Routine kAll[] = {kByDenomination, kByTotal, kWithoutLow, kWithoutMinimum,
                            kTotalWithoutMinimum};

LcuTable Ordered(Routine routine, const Request& request) {
    Module module;
    module.Inner().ulCstMinimum4Mix6 = 0U;
    LcuTable table{};
    (module.Inner().*routine)(request.record, table);
    return table;
}

/// The units in their new order, by their numbers in the full table.
Numbers OrderOf(Routine routine, const Request& request) {
    const LcuTable table = Ordered(routine, request);
    Numbers numbers;
    for (unsigned index = 0; index < table.usCount; ++index) {
        numbers.push_back(table.aLCUs[index].usNumber);
    }
    return numbers;
}

/// The cassettes of the only unit in their new order, by position.
Numbers CassettesOf(Routine routine, const Request& request) {
    const LcuTable table = Ordered(routine, request);
    Numbers positions;
    for (unsigned index = 0; index < table.aLCUs[0].usNumPhysicalCUs; ++index) {
        positions.push_back(table.aLCUs[0].aPhysicalCUs[index].usPosition);
    }
    return positions;
}

TEST(SortLCU, PutsLargestValueFirst) {
    const Request request = Request().Bill(10, 5).Bill(50, 5).Bill(20, 5);
    for (const Routine routine : {kByDenomination, kWithoutLow, kWithoutMinimum}) {
        EXPECT_EQ(OrderOf(routine, request), (Numbers{1, 2, 0}));
    }
}

TEST(SortLCU, PutsSmallestValueFirstForMix10InOneRoutineOnly) {
    const Request request = Request().Bill(10, 5).Bill(50, 5).Bill(20, 5).Mix(10);
    EXPECT_EQ(OrderOf(kByDenomination, request), (Numbers{0, 2, 1}));
    for (const Routine routine : {kByTotal, kWithoutLow, kWithoutMinimum, kTotalWithoutMinimum}) {
        EXPECT_EQ(OrderOf(routine, request), (Numbers{1, 2, 0}));
    }
}

TEST(SortLCU, TakesOnlyMix10ForAscending) {
    for (const unsigned mix : {0U, 1U, 9U, 11U, 266U, 0xFFFFU}) {
        EXPECT_EQ(OrderOf(kByDenomination, Request().Bill(10, 5).Bill(50, 5).Mix(mix)),
                  (Numbers{1, 0}));
    }
}

TEST(SortLCU, PutsLargestTotalFirst) {
    const Request request = Request().Bill(50, 50).Bill(10, 500);  // 2500 and 5000
    EXPECT_EQ(OrderOf(kByTotal, request), (Numbers{1, 0}));
    EXPECT_EQ(OrderOf(kTotalWithoutMinimum, request), (Numbers{1, 0}));
}

TEST(SortLCU, ComparesTotalsAsTheyWrapAt32Bits) {
    const Request request = Request().Bill(65536, 65536).Bill(1, 1);  // 2^32 and 1
    EXPECT_EQ(OrderOf(kByTotal, request), (Numbers{1, 0}));
    EXPECT_EQ(OrderOf(kTotalWithoutMinimum, request), (Numbers{1, 0}));
}

TEST(SortLCU, ComparesWithoutASign) {
    EXPECT_EQ(OrderOf(kByDenomination, Request().Bill(1, 1).Bill(0x80000000, 1)), (Numbers{1, 0}));
    EXPECT_EQ(OrderOf(kByTotal, Request().Bill(1, 1).Bill(0x80000000, 1)), (Numbers{1, 0}));
}

TEST(SortLCU, SortsByRescaledValues) {
    // The coin of 50 keeps its value, the bill of 20 becomes 2000.
    const Request request = Request().Coin(50, 10).Bill(20, 10).Exponent(-2);
    for (const Routine routine : {kByDenomination, kByTotal, kWithoutLow, kWithoutMinimum}) {
        EXPECT_EQ(OrderOf(routine, request), (Numbers{1, 0}));
    }
    EXPECT_EQ(OrderOf(kTotalWithoutMinimum, request), (Numbers{0, 1}));
}

TEST(SortLCU, SortsByRescaledValuesThatHaveWrapped) {
    // 429496730 * 10 is 2^32 + 4.
    EXPECT_EQ(OrderOf(kByDenomination, Request().Bill(429496730, 1).Bill(1, 1).Exponent(-1)),
              (Numbers{1, 0}));
    EXPECT_EQ(OrderOf(kByDenomination, Request().Bill(3, 1).Coin(1, 1).Exponent(-32768)),
              (Numbers{1, 0}));  // nothing is left of the 3
}

TEST(SortLCU, LeavesEqualKeysAlone) {
    const Request equalValues = Request().Bill(20, 5).Coin(20, 5).Cassette(5, 20, 5).Coupon(20, 5);
    for (const Routine routine : kAll) {
        EXPECT_EQ(OrderOf(routine, equalValues), (Numbers{0, 1, 2, 3}));
    }
}

// The ties below come out differently with any other sort, or with an inner loop that runs upwards.

TEST(SortLCU, TurnsEqualUnitsRoundWhenALargerOneComesLast) {
    // (20 20' 50): 20 is exchanged with 50 across 20', which so comes to stand before it.
    const Request values = Request().Bill(20, 5).Coin(20, 5).Bill(50, 5);
    for (const Routine routine : kAll) {
        EXPECT_EQ(OrderOf(routine, values), (Numbers{2, 1, 0}));
    }
}

TEST(SortLCU, TakesTheLastOfEqualLargerUnitsFirst) {
    // (20 50 50'): the inner loop comes from the end and meets 50' first.
    const Request values = Request().Bill(20, 5).Bill(50, 5).Coin(50, 5);
    for (const Routine routine : kAll) {
        EXPECT_EQ(OrderOf(routine, values), (Numbers{2, 1, 0}));
    }
}

TEST(SortLCU, TreatsEqualTotalsOfDifferentValuesAsEqual) {
    const Request totals = Request().Bill(10, 1).Bill(20, 50).Bill(100, 10).Bill(50, 20);
    EXPECT_EQ(OrderOf(kByTotal, totals), (Numbers{3, 1, 2, 0}));
    EXPECT_EQ(OrderOf(kTotalWithoutMinimum, totals), (Numbers{3, 1, 2, 0}));
    EXPECT_EQ(OrderOf(kByTotal, Request().Bill(20, 50).Bill(100, 10)), (Numbers{0, 1}));
}

TEST(SortLCU, DecidesTiesOfMix10ByTheSameLoops) {
    EXPECT_EQ(OrderOf(kByDenomination, Request().Bill(50, 5).Bill(20, 5).Coin(20, 5).Mix(10)),
              (Numbers{2, 1, 0}));
    EXPECT_EQ(OrderOf(kByDenomination, Request().Bill(50, 5).Coin(50, 5).Bill(20, 5).Mix(10)),
              (Numbers{2, 1, 0}));
}

TEST(SortLCU, DecidesLongerTiesByTheSameLoops) {
    // Followed by hand: (1 3 2 3' 2' 3") becomes (3" 3 3' 2 2' 1).
    const Request request =
        Request().Bill(1, 1).Bill(3, 1).Bill(2, 1).Coin(3, 1).Coin(2, 1).Coupon(3, 1);
    EXPECT_EQ(OrderOf(kByDenomination, request), (Numbers{5, 1, 3, 2, 4, 0}));
}

TEST(SortLCU, PutsFullestCassetteFirst) {
    const Request request = Request().Bill(10, 100).Bill(10, 300).Bill(10, 200);
    for (const Routine routine : kAll) {
        EXPECT_EQ(CassettesOf(routine, request), (Numbers{1, 2, 0}));
    }
}

TEST(SortLCU, ComparesCassettesWithoutASignAndWhateverTheirStatus) {
    const Request request = Request().Bill(10, 5).Bill(10, 0xFFFFFFFF).Status(6);
    for (const Routine routine : kAll) {
        EXPECT_EQ(CassettesOf(routine, request), (Numbers{1, 0}));
    }
}

TEST(SortLCU, ScansCassettesFromTheEndExceptForMix9) {
    const Request laterOnesEqual = Request().Bill(10, 100).Bill(10, 300).Bill(10, 300);
    for (const Routine routine : {kByDenomination, kByTotal, kWithoutLow, kWithoutMinimum}) {
        EXPECT_EQ(CassettesOf(routine, laterOnesEqual), (Numbers{2, 1, 0}));
    }
    EXPECT_EQ(CassettesOf(kTotalWithoutMinimum, laterOnesEqual), (Numbers{1, 2, 0}));
}

TEST(SortLCU, TurnsEqualCassettesRoundWhenAFullerOneComesLast) {
    const Request request = Request().Bill(10, 100).Bill(10, 100).Bill(10, 300);
    for (const Routine routine : kAll) {
        EXPECT_EQ(CassettesOf(routine, request), (Numbers{2, 1, 0}));
    }
}

TEST(SortLCU, SortsTheCassettesOfEveryKeptUnit) {
    const LcuTable table =
        Ordered(kByDenomination, Request().Bill(10, 1).Bill(10, 2).Bill(20, 3).Bill(20, 4));
    EXPECT_EQ(table.aLCUs[0].aPhysicalCUs[0].usPosition, 3);
    EXPECT_EQ(table.aLCUs[1].aPhysicalCUs[0].usPosition, 1);
}

}  // namespace
