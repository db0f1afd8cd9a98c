#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "RequestBytes.h"
#include "UnitOrdering.h"

namespace reference {
namespace {

constexpr Ordering kAll[] = {
    Ordering::ByDenomination,
    Ordering::ByTotalAmount,
    Ordering::ByDenominationWithoutLow,
    Ordering::ByDenominationWithoutBelowMinimum,
    Ordering::ByTotalAmountWithoutBelowMinimum,
};

std::vector<std::uint32_t> Values(Ordering ordering, const RequestBytes& request) {
    std::vector<std::uint32_t> values;
    for (const LogicalUnit& unit : OrderedUnits(ordering, Object{}, request.Bytes())) {
        values.push_back(unit.value);
    }
    return values;
}

using Numbers = std::vector<std::uint32_t>;

TEST(ReferenceOrdering, DropsUnitsOfAnotherCurrency) {
    for (const Ordering ordering : kAll) {
        const RequestBytes request =
            RequestBytes().Bill(50, 500).Add({20, 500, 0, 3, "USD"}).Bill(10, 500);
        EXPECT_EQ((Numbers{50, 10}), Values(ordering, request));
    }
}

TEST(ReferenceOrdering, SortsDownwardsAndUpwardsForMaximumNotes) {
    RequestBytes request = RequestBytes().Bill(10, 9).Bill(50, 9).Bill(20, 9);
    EXPECT_EQ((Numbers{50, 20, 10}), Values(Ordering::ByDenomination, request));
    EXPECT_EQ((Numbers{10, 20, 50}), Values(Ordering::ByDenomination, request.Mix(10)));
}

TEST(ReferenceOrdering, RescalesBillsAndCouponsButNoCoins) {
    const RequestBytes request =
        RequestBytes().Exponent(-2).Bill(20, 500).Coin(20, 500).Coupon(1, 500);
    EXPECT_EQ((Numbers{2000, 100, 20}), Values(Ordering::ByDenomination, request));
    EXPECT_EQ((Numbers{2000, 100, 20}), Values(Ordering::ByTotalAmount, request));
    EXPECT_EQ((Numbers{20, 20, 1}), Values(Ordering::ByTotalAmountWithoutBelowMinimum, request));
}

TEST(ReferenceOrdering, RescalesNothingWithoutANegativeExponent) {
    EXPECT_EQ((Numbers{20}), Values(Ordering::ByDenomination, RequestBytes().Bill(20, 5)));
    EXPECT_EQ((Numbers{20}),
              Values(Ordering::ByDenomination, RequestBytes().Exponent(2).Bill(20, 5)));
}

TEST(ReferenceOrdering, KeepsACouponWithoutValueAndNoBill) {
    const RequestBytes request = RequestBytes().Bill(0, 500).Coin(0, 500).Coupon(0, 500);
    for (const Ordering ordering : kAll) {
        EXPECT_EQ((Numbers{0}), Values(ordering, request));
    }
}

TEST(ReferenceOrdering, AcceptsEachTypeWhereItIsWanted) {
    for (const Ordering ordering : kAll) {
        for (std::uint16_t type = 0; type <= 16; ++type) {
            const bool wanted =
                type == 3 || type == 4 || type == 5 || type == 7 ||
                (type == 12 && ordering == Ordering::ByTotalAmountWithoutBelowMinimum);
            const RequestBytes request = RequestBytes().Add({50, 500, 0, type, "EUR"});
            EXPECT_EQ(wanted ? 1U : 0U, Values(ordering, request).size()) << "type " << type;
        }
    }
}

TEST(ReferenceOrdering, DropsEachStatusWhereItIsUnwanted) {
    for (const Ordering ordering : kAll) {
        for (std::uint16_t status = 0; status <= 12; ++status) {
            const bool low = status == 3 && ordering == Ordering::ByDenominationWithoutLow;
            const bool manipulated =
                status == 9 && ordering == Ordering::ByTotalAmountWithoutBelowMinimum;
            const bool dropped = (status >= 4 && status <= 8) || low || manipulated;
            const RequestBytes request = RequestBytes().Bill(50, 500, status);
            EXPECT_EQ(dropped ? 0U : 1U, Values(ordering, request).size()) << "status " << status;
        }
    }
}

TEST(ReferenceOrdering, HoldsCountsToTheMinimum) {
    const RequestBytes atMinimum = RequestBytes().Bill(50, 100);
    const RequestBytes above = RequestBytes().Bill(50, 101);
    for (const Ordering ordering : {Ordering::ByDenominationWithoutBelowMinimum,
                                    Ordering::ByTotalAmountWithoutBelowMinimum}) {
        EXPECT_TRUE(Values(ordering, atMinimum).empty());
        EXPECT_EQ(1U, Values(ordering, above).size());
    }
    EXPECT_EQ(1U, Values(Ordering::ByDenomination, atMinimum).size());
}

TEST(ReferenceOrdering, ReadsCountsAsSignedExceptInOneOrdering) {
    const RequestBytes request = RequestBytes().Bill(50, 0x80000000);
    for (const Ordering ordering : kAll) {
        const bool kept = ordering == Ordering::ByTotalAmountWithoutBelowMinimum;
        EXPECT_EQ(kept ? 1U : 0U, Values(ordering, request).size());
    }
}

TEST(ReferenceOrdering, SortsByTheMoneyHeld) {
    EXPECT_EQ((Numbers{10, 50}),
              Values(Ordering::ByTotalAmount, RequestBytes().Bill(50, 50).Bill(10, 500)));
}

TEST(ReferenceOrdering, SortsByTheWrappedProduct) {
    // 65536 * 65536 wraps to 0, less than 5 * 200.
    EXPECT_EQ((Numbers{5, 65536}),
              Values(Ordering::ByTotalAmount, RequestBytes().Bill(65536, 65536).Bill(5, 200)));
}

TEST(ReferenceOrdering, PutsTheFullestCassetteFirst) {
    const RequestBytes request = RequestBytes().Bill(50, 100).Bill(50, 300).Bill(50, 200);
    for (const Ordering ordering : kAll) {
        const UnitTable table = OrderedUnits(ordering, Object{}, request.Bytes());
        ASSERT_EQ(1U, table.size());
        EXPECT_EQ(300U, table[0].cassettes[0].count);
        EXPECT_EQ(200U, table[0].cassettes[1].count);
        EXPECT_EQ(100U, table[0].cassettes[2].count);
    }
}

std::vector<std::uint16_t> Positions(Ordering ordering, const RequestBytes& request) {
    const UnitTable table = OrderedUnits(ordering, Object{}, request.Bytes());
    std::vector<std::uint16_t> positions;
    for (const Cassette& cassette : table.at(0).cassettes) {
        positions.push_back(cassette.position);
    }
    return positions;
}

TEST(ReferenceOrdering, ScansCassettesUpwardsInOneOrderingOnly) {
    // Downwards: 0 goes with the last 200 (2), leaving 1, 0. Upwards: 0 goes with the first (1).
    const RequestBytes request = RequestBytes().Bill(50, 150).Bill(50, 200).Bill(50, 200);
    EXPECT_EQ((std::vector<std::uint16_t>{2, 1, 0}), Positions(Ordering::ByDenomination, request));
    EXPECT_EQ((std::vector<std::uint16_t>{1, 2, 0}),
              Positions(Ordering::ByTotalAmountWithoutBelowMinimum, request));
}

TEST(ReferenceOrdering, LeavesTheImageBeyondTheKeptUnitsAlone) {
    std::vector<std::uint8_t> image(kTableBytes, 0xA5);
    const RequestBytes request = RequestBytes().Bill(10, 0).Bill(50, 5).Bill(100, 5);
    OrderedTableImage(Ordering::ByDenomination, Object{}, request.Bytes(), image.data());
    EXPECT_EQ(2U, ReadU16(image.data()));
    EXPECT_EQ(0xA5A5U, ReadU16(image.data() + 2));
    EXPECT_EQ(2U, ReadU16(image.data() + 4)) << "the kept unit names its place in the full table";
    EXPECT_EQ(1U, ReadU16(image.data() + 4 + 1052));
    EXPECT_TRUE(std::all_of(image.begin() + 2108, image.end(),
                            [](std::uint8_t byte) { return byte == 0xA5; }));
}

}  // namespace
}  // namespace reference
