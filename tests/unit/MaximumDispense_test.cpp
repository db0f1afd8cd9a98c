#include "TableBuilder.h"

namespace {

/// Holds so many items of each unit to the limit of a table.
Found Check(const Table& table, const std::vector<std::uint32_t>& items) {
    LcuNotes notes;
    std::memset(&notes, 0xCC, sizeof(notes));
    std::copy(items.begin(), items.end(), notes.aulNotes);
    ClearRecordedCode();
    const std::int32_t returned =
        CMixAlgorithm::CheckMaximumDispense(table.request, table.table, notes);
    return {returned, {}, RecordedCode()};
}

const Found kPasses{0, {}, ""};
const Found kTooManyNotes{-307, {}, "971A3"};
const Found kTooManyCoins{-307, {}, "971A4"};

TEST(CheckMaximumDispense, PassesTotalEqualToLimit) {
    EXPECT_EQ(Check(Table().Bill(50, 100).Limit(40), {40}), kPasses);
    EXPECT_EQ(Check(Table().Coin(50, 100).Limit(40), {40}), kPasses);
}

TEST(CheckMaximumDispense, RefusesTotalOneAboveLimit) {
    EXPECT_EQ(Check(Table().Bill(50, 100).Limit(40), {41}), kTooManyNotes);
    EXPECT_EQ(Check(Table().Coin(50, 100).Limit(40), {41}), kTooManyCoins);
}

TEST(CheckMaximumDispense, AddsUpAllNotes) {
    const Table table = Table().Bill(50, 100).Bill(20, 100).Limit(40);
    EXPECT_EQ(Check(table, {25, 20}), kTooManyNotes);
    EXPECT_EQ(Check(table, {20, 20}), kPasses);
}

TEST(CheckMaximumDispense, AddsUpAllCoins) {
    const Table table = Table().Coin(2, 100).Unit(5, 1, 100).Limit(40);
    EXPECT_EQ(Check(table, {25, 20}), kTooManyCoins);
    EXPECT_EQ(Check(table, {20, 20}), kPasses);
}

TEST(CheckMaximumDispense, HoldsNotesAndCoinsToTheLimitApart) {
    EXPECT_EQ(Check(Table().Bill(50, 100).Coin(1, 100).Limit(40), {40, 40}), kPasses);
    EXPECT_EQ(Check(Table().Bill(50, 100).Unit(5, 1, 100).Limit(40), {10, 41}), kTooManyCoins);
}

TEST(CheckMaximumDispense, NamesNotesWhenBothAreTooMany) {
    EXPECT_EQ(Check(Table().Coin(1, 100).Bill(50, 100).Limit(40), {41, 41}), kTooManyNotes);
}

TEST(CheckMaximumDispense, CountsEveryOtherTypeAsNotes) {
    for (const unsigned type : {0U, 1U, 2U, 3U, 6U, 7U, 8U, 12U, 36U, 37U, 260U, 0xFFFFU}) {
        EXPECT_EQ(Check(Table().Unit(type, 5, 100).Limit(40), {41}), kTooManyNotes) << type;
    }
}

TEST(CheckMaximumDispense, PassesNothingUnderALimitOfNothing) {
    EXPECT_EQ(Check(Table().Bill(50, 100).Limit(0), {0}), kPasses);
    EXPECT_EQ(Check(Table().Bill(50, 100).Limit(0), {1}), kTooManyNotes);
}

TEST(CheckMaximumDispense, ReadsTheLimitWithoutASign) {
    EXPECT_EQ(Check(Table().Bill(1, 1).Limit(0xFFFF), {0xFFFF}), kPasses);
    EXPECT_EQ(Check(Table().Bill(1, 1).Limit(0xFFFF), {0x10000}), kTooManyNotes);
}

TEST(CheckMaximumDispense, WrapsTotalsAt32Bits) {
    const Table table = Table().Bill(50, 10).Bill(20, 10).Limit(3);
    EXPECT_EQ(Check(table, {0xFFFFFFFF, 4}), kPasses);
    EXPECT_EQ(Check(table, {0xFFFFFFFF, 5}), kTooManyNotes);
}

TEST(CheckMaximumDispense, ReadsOnlyTheUnitsOfTheTable) {
    Table table = Table().Bill(50, 10).Bill(20, 10).Limit(1);
    table.table.usCount = std::uint16_t{1};
    EXPECT_EQ(Check(table, {1, 1000}), kPasses);
}

TEST(CheckMaximumDispense, TracesTheWriteAndThenTheCombination) {
    const Table table = Table().Bill(50, 100).Coin(1, 100).Limit(2);
    TraceLines lines;
    Check(table, {12, 3});
    EXPECT_EQ(lines.All(), (Lines{"CMixAlgorithm::RegWriteError() Error Code is 971A3.",
                                  "CheckMaximumDispense() Calculated Notes are 12 3."}));
}

TEST(CheckMaximumDispense, TracesNothingWhenItPasses) {
    TraceLines lines;
    Check(Table().Bill(50, 100), {40});
    EXPECT_EQ(lines.All(), Lines{});
}

TEST(CheckMaximumDispense, TracesCountsFrom2To31UpAsNegative) {
    TraceLines lines;
    Check(Table().Bill(50, 100), {0xFFFFFFFF});
    EXPECT_EQ(lines.All().back(), "CheckMaximumDispense() Calculated Notes are -1.");
}

}  // namespace
