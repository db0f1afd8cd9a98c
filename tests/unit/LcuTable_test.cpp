#include "RequestBuilder.h"

#include "CMixAlgorithm.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

/// The table of a request, built over rubbish.
LcuTable Built(const Request& request) {
    LcuTable table;
    std::memset(&table, 0xAB, sizeof(table));
    CMixAlgorithm::BuildLCUTable(request.record, table);
    return table;
}

bool IsAllZero(const void* bytes, std::size_t size) {
    const auto* const first = static_cast<const unsigned char*>(bytes);
    return std::all_of(first, first + size, [](unsigned char byte) { return byte == 0; });
}

void ExpectOneUnit(const Request& request, std::uint32_t count, unsigned status) {
    const LcuTable table = Built(request);
    EXPECT_EQ(table.usCount, 1);
    EXPECT_EQ(table.aLCUs[0].ulCount, count);
    EXPECT_EQ(table.aLCUs[0].usStatus, status);
    EXPECT_EQ(table.aLCUs[0].usNumPhysicalCUs, request.record.usNumPhysicalCUs);
}

TEST(BuildLCUTable, ClearsTheWholeTableWithoutCassettes) {
    const LcuTable table = Built(Request());
    EXPECT_TRUE(IsAllZero(&table, sizeof(table)));
}

TEST(BuildLCUTable, WritesEveryByteOfASingleUnit) {
    Request request;
    request.Bill(20, 10).Status(3).At(5);
    LcuTable expected;
    std::memset(&expected, 0, sizeof(expected));
    expected.usCount = std::uint16_t{1};
    LogicalCashUnit& unit = expected.aLCUs[0];
    unit.usNumber = std::uint16_t{0};
    unit.usType = std::uint16_t{3};
    unit.cCurrencyID = {{'E', 'U', 'R'}};
    unit.ulValues = 20U;
    unit.ulCount = 10U;
    unit.usStatus = std::uint16_t{3};
    unit.usNumPhysicalCUs = std::uint16_t{1};
    unit.aPhysicalCUs[0] = request.record.aPhysicalCUs[0];
    const LcuTable table = Built(request);
    EXPECT_EQ(std::memcmp(&table, &expected, sizeof(table)), 0);
}

TEST(BuildLCUTable, NumbersUnitsInTheOrderInWhichTheyAreMet) {
    const LcuTable table = Built(Request().Bill(50, 1).Bill(20, 2).Bill(50, 3).Bill(10, 4));
    ASSERT_EQ(table.usCount, 3);
    const std::uint32_t values[] = {50, 20, 10};
    for (unsigned index = 0; index < 3; ++index) {
        EXPECT_EQ(table.aLCUs[index].usNumber, index);
        EXPECT_EQ(table.aLCUs[index].ulValues, values[index]);
    }
    EXPECT_EQ(table.aLCUs[0].ulCount, 4U);
}

TEST(BuildLCUTable, KeepsCurrenciesApart) {
    EXPECT_EQ(Built(Request().Bill(20, 1).Bill(20, 1).In("USD")).usCount, 2);
}

TEST(BuildLCUTable, ComparesAllThreeCharactersOfACurrency) {
    EXPECT_EQ(Built(Request().Bill(20, 1).Bill(20, 1).In("EUX")).usCount, 2);
    EXPECT_EQ(Built(Request().Bill(20, 1).Bill(20, 1).In("XUR")).usCount, 2);
    EXPECT_EQ(Built(Request().Bill(20, 1).In("E\0A").Bill(20, 1).In("E\0B")).usCount, 2);
    EXPECT_EQ(Built(Request().Bill(20, 1).In("eur").Bill(20, 1).In("eur")).usCount, 1);
}

TEST(BuildLCUTable, KeepsTypesApart) {
    EXPECT_EQ(Built(Request().Bill(20, 1).Coupon(20, 1)).usCount, 2);
    EXPECT_EQ(Built(Request().Cassette(4, 1, 1).Cassette(260, 1, 1)).usCount, 2);
}

TEST(BuildLCUTable, KeepsValuesApart) {
    EXPECT_EQ(Built(Request().Bill(1, 1).Bill(0x1000001, 1)).usCount, 2);
}

TEST(BuildLCUTable, GroupsSixCassettesIntoOneUnit) {
    const Request request =
        Request().Bill(10, 1).Bill(10, 2).Bill(10, 3).Bill(10, 4).Bill(10, 5).Bill(10, 6);
    const LcuTable table = Built(request);
    ASSERT_EQ(table.aLCUs[0].usNumPhysicalCUs, 6);
    EXPECT_EQ(table.aLCUs[0].ulCount, 21U);
    EXPECT_EQ(std::memcmp(table.aLCUs[0].aPhysicalCUs, request.record.aPhysicalCUs,
                          sizeof(request.record.aPhysicalCUs)),
              0)
        << "cassettes are copied whole and stay in the order of the request";
}

TEST(BuildLCUTable, MakesSixUnitsOfSixDifferentCassettes) {
    const LcuTable table =
        Built(Request().Bill(1, 1).Bill(2, 1).Bill(3, 1).Bill(4, 1).Bill(5, 1).Bill(6, 1));
    ASSERT_EQ(table.usCount, 6);
    EXPECT_EQ(table.aLCUs[5].usNumber, 5);
    EXPECT_EQ(table.aLCUs[5].ulValues, 6U);
}

TEST(BuildLCUTable, ReadsMoreThanSixCassettesAsSix) {
    Request request;
    request.Bill(1, 1).Bill(2, 1).Bill(3, 1).Bill(4, 1).Bill(5, 1).Bill(6, 1);
    for (const unsigned count : {7U, 0x7FFFU, 0x8000U, 0xFFFFU}) {
        request.record.usNumPhysicalCUs = static_cast<std::uint16_t>(count);
        EXPECT_EQ(Built(request).usCount, 6) << count;
    }
}

TEST(BuildLCUTable, CountsFirstCassetteWhateverItsStatus) {
    ExpectOneUnit(Request().Bill(10, 50).Status(4).Bill(10, 200), 250, 0);
    for (unsigned status = 0; status <= 11; ++status) {
        ExpectOneUnit(Request().Bill(10, 50).Status(status), 50, status);
    }
}

TEST(BuildLCUTable, CountsLaterCassettesOnlyWhenTheyAreUsable) {
    ExpectOneUnit(Request().Bill(10, 200).Bill(10, 50).Status(4), 200, 0);
    for (const unsigned status : {0U, 1U, 2U, 3U}) {
        ExpectOneUnit(Request().Bill(10, 200).Bill(10, 50).Status(status), 250, 0);
    }
    for (const unsigned status : {4U, 5U, 6U, 7U, 8U, 9U, 10U, 32U, 0xFFFFU}) {
        ExpectOneUnit(Request().Bill(10, 200).Bill(10, 50).Status(status), 200, 0);
    }
}

TEST(BuildLCUTable, CountsWrapAt32Bits) {
    ExpectOneUnit(Request().Bill(10, 0xFFFFFFFF).Bill(10, 5), 4, 0);
}

struct StatusPair {
    unsigned first;
    unsigned second;
    unsigned kept;
};

TEST(BuildLCUTable, KeepsTheBetterStatusOfAGroup) {
    const StatusPair pairs[] = {
        {1, 3, 1},  // FULL, LOW
        {3, 1, 1},   {1, 2, 2}, {0, 6, 0}, {6, 4, 4},
        {4, 5, 5},   {5, 4, 5}, {8, 9, 9},  // NOREF gives way even to MANIP
        {9, 77, 77},                        // and MANIP to a status that nobody knows
        {77, 0, 77},
    };
    for (const StatusPair& pair : pairs) {
        const LcuTable table =
            Built(Request().Bill(10, 1).Status(pair.first).Bill(10, 1).Status(pair.second));
        EXPECT_EQ(table.aLCUs[0].usStatus, pair.kept) << pair.first << " then " << pair.second;
    }
}

TEST(BuildLCUTable, CopiesCassettesThatDoNotCount) {
    const Request request = Request().Bill(10, 5).Bill(10, 7).Status(6);
    const LcuTable table = Built(request);
    EXPECT_EQ(table.aLCUs[0].usNumPhysicalCUs, 2);
    EXPECT_EQ(std::memcmp(&table.aLCUs[0].aPhysicalCUs[1], &request.record.aPhysicalCUs[1],
                          sizeof(PhysicalCashUnit)),
              0);
}

TEST(BuildLCUTable, AppliesNoExponent) {
    EXPECT_EQ(Built(Request().Bill(20, 1).Exponent(-2)).aLCUs[0].ulValues, 20U);
}

}  // namespace
