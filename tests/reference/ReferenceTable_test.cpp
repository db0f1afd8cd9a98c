#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <tuple>
#include <vector>

#include "RequestBytes.h"
#include "UnitTable.h"

namespace reference {
namespace {

UnitTable TableOf(const RequestBytes& request) {
    return BuildTable(request.Bytes());
}

TEST(ReferenceTable, IsAllZeroWithoutCassettes) {
    std::vector<std::uint8_t> image(kTableBytes, 0xA5);
    BuildTableImage(RequestBytes().Bytes(), image.data());
    EXPECT_EQ(std::vector<std::uint8_t>(kTableBytes, 0), image);
}

TEST(ReferenceTable, KeepsCurrenciesAndTypesApart) {
    const UnitTable table = TableOf(RequestBytes()
                                        .Bill(50, 10)
                                        .Add({50, 10, 0, 3, "USD"})
                                        .Add({50, 10, 0, 7, "EUR"})
                                        .Bill(50, 5));
    ASSERT_EQ(3U, table.size());
    EXPECT_EQ(15U, table[0].count);
    EXPECT_EQ(2U, table[0].cassettes.size());
    EXPECT_EQ(2U, table[2].number);
}

TEST(ReferenceTable, CountsTheFirstCassetteWhateverItsStatus) {
    const UnitTable table = TableOf(RequestBytes().Bill(50, 50, 4).Bill(50, 200, 0));
    EXPECT_EQ(250U, table[0].count);
    EXPECT_EQ(0U, table[0].status);
}

TEST(ReferenceTable, LeavesOutLaterCassettesThatCannotGive) {
    const UnitTable table = TableOf(RequestBytes().Bill(50, 200, 0).Bill(50, 50, 4));
    EXPECT_EQ(200U, table[0].count);
    EXPECT_EQ(0U, table[0].status);
    EXPECT_EQ(2U, table[0].cassettes.size());
}

TEST(ReferenceTable, AddsLaterCountsOfStatusZeroToThreeOnly) {
    for (std::uint16_t status = 0; status <= 11; ++status) {
        const UnitTable table = TableOf(RequestBytes().Bill(50, 7, 0).Bill(50, 100, status));
        EXPECT_EQ(status <= 3 ? 107U : 7U, table[0].count) << "status " << status;
    }
}

TEST(ReferenceTable, WrapsTheCountOfAGroup) {
    const UnitTable table = TableOf(RequestBytes().Bill(50, 0xFFFFFFFF).Bill(50, 3));
    EXPECT_EQ(2U, table[0].count);
}

TEST(ReferenceTable, ReadsMoreThanSixCassettesAsSix) {
    RequestBytes request;
    for (std::uint32_t value = 1; value <= 6; ++value) {
        request.Bill(value, 10);
    }
    request.CassetteNumber(65535);
    EXPECT_EQ(6U, TableOf(request).size());
}

TEST(ReferenceTable, WritesEveryFieldOfAUnitToItsPlace) {
    RequestBytes request;
    request.Bill(1, 1).Add({0x01020304, 0x0A0B0C0D, 2, 5, "CHF"});
    request.PutU16(24 + 172 + 170, 0x5A5A);
    std::vector<std::uint8_t> image(kTableBytes, 0xA5);
    BuildTableImage(request.Bytes(), image.data());
    const std::uint8_t* unit = image.data() + 4 + 1052;
    EXPECT_EQ(2U, ReadU16(image.data()));
    EXPECT_EQ(0U, ReadU16(image.data() + 2));
    EXPECT_EQ(1U, ReadU16(unit));
    EXPECT_EQ(5U, ReadU16(unit + 2));
    EXPECT_TRUE(std::equal(unit + 4, unit + 7, "CHF"));
    EXPECT_EQ(0U, unit[7]);
    EXPECT_EQ(0x01020304U, ReadU32(unit + 8));
    EXPECT_EQ(0x0A0B0C0DU, ReadU32(unit + 12));
    EXPECT_EQ(2U, ReadU16(unit + 16));
    EXPECT_EQ(1U, ReadU16(unit + 18));
    EXPECT_TRUE(std::equal(unit + 20, unit + 192, request.Bytes() + 24 + 172));
    EXPECT_TRUE(std::all_of(unit + 192, unit + 1052, [](std::uint8_t byte) { return byte == 0; }));
}

using StatusCase = std::tuple<int, int, int>;  // group, newcomer, kept

class ReferenceStatus : public testing::TestWithParam<StatusCase> {};

TEST_P(ReferenceStatus, KeepsTheBetterOfTwo) {
    const auto [group, newcomer, kept] = GetParam();
    const UnitTable table = TableOf(RequestBytes()
                                        .Bill(50, 1, static_cast<std::uint16_t>(group))
                                        .Bill(50, 1, static_cast<std::uint16_t>(newcomer)));
    EXPECT_EQ(kept, table[0].status);
}

std::string NameOf(const testing::TestParamInfo<StatusCase>& one) {
    const auto [group, newcomer, kept] = one.param;
    return std::to_string(group) + "And" + std::to_string(newcomer) + "Give" + std::to_string(kept);
}

INSTANTIATE_TEST_SUITE_P(Pairs,
                         ReferenceStatus,
                         testing::Values(StatusCase{1, 3, 1},
                                         StatusCase{3, 1, 1},
                                         StatusCase{1, 2, 2},
                                         StatusCase{2, 1, 2},
                                         StatusCase{0, 6, 0},
                                         StatusCase{0, 9, 0},
                                         StatusCase{6, 4, 4},
                                         StatusCase{4, 5, 5},
                                         StatusCase{5, 4, 5},
                                         StatusCase{8, 9, 9},
                                         StatusCase{9, 4711, 4711},
                                         StatusCase{4711, 0, 4711},
                                         StatusCase{7, 6, 6},
                                         StatusCase{6, 7, 6},
                                         StatusCase{4, 6, 4},
                                         StatusCase{3, 4711, 3}),
                         NameOf);

TEST(ReferenceStatusRank, IsTheOrderOfBetterStatuses) {
    const std::vector<std::uint16_t> bestFirst{0, 2, 1, 3, 5, 4, 6};
    for (std::size_t group = 0; group < bestFirst.size(); ++group) {
        for (std::size_t newcomer = 0; newcomer < bestFirst.size(); ++newcomer) {
            EXPECT_EQ(newcomer < group, TakesOver(bestFirst[group], bestFirst[newcomer]))
                << bestFirst[group] << " then " << bestFirst[newcomer];
        }
    }
}

}  // namespace
}  // namespace reference
