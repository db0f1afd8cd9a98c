#include "sweeps/MapRow.h"

#include <gtest/gtest.h>

namespace qxmix {
namespace {

MapCell Paid(std::uint32_t first, std::uint32_t last, std::uint32_t remainder = 0) {
    MapCell cell;
    cell.outcome = Outcome::Paid;
    cell.values[0] = first;
    cell.values[5] = last;
    cell.remainder = remainder;
    return cell;
}

MapCell Missed(Milliseconds deadline) {
    MapCell cell;
    cell.outcome = Outcome::NoAnswer;
    cell.deadline = deadline;
    return cell;
}

MapCell Refused(const std::string& code) {
    MapCell cell;
    cell.outcome = Outcome::NotDispensable;
    cell.returned = -306;
    cell.code = code;
    return cell;
}

TEST(MapRow, GivesBackEveryCell) {
    const std::vector<MapCell> cells = {
        Paid(1, 0),  Missed(Milliseconds(100)), Paid(0xFFFFFFFFU, 7, 0x80000000U), Refused("971A2"),
        Refused(""), Missed(Milliseconds(100)), Missed(Milliseconds(10)),          Paid(2, 3),
        Paid(2, 3)};
    MapRow row;
    for (const MapCell& cell : cells) {
        row.Add(cell);
    }
    MapRowReader reader(row);
    for (const MapCell& expected : cells) {
        const MapCell& cell = reader.Next();
        ASSERT_EQ(cell.outcome, expected.outcome);
        if (!expected.IsAnswered()) {
            EXPECT_EQ(cell.deadline, expected.deadline);
            continue;
        }
        EXPECT_EQ(cell.values, expected.values);
        EXPECT_EQ(cell.remainder, expected.remainder);
        EXPECT_EQ(cell.returned, expected.returned);
        EXPECT_EQ(cell.code, expected.code);
    }
}

TEST(MapRow, JoinsAmountsWithTheSameOutcome) {
    MapRow row;
    row.Add(Paid(1, 0));
    row.Add(Paid(2, 0));
    row.Add(Refused(""));
    row.Add(Paid(3, 0));
    ASSERT_EQ(row.Runs().size(), 3U);
    EXPECT_EQ(row.Runs()[0].length, 2U);
    EXPECT_EQ(row.Runs()[1].outcome, Outcome::NotDispensable);
    EXPECT_EQ(row.Count(Outcome::Paid), 3U);
    EXPECT_EQ(row.Count(Outcome::Overpaid), 0U);
    EXPECT_EQ(row.Size(), 4U);
}

TEST(MapRow, KeepsTheDeadlineOfEveryMiss) {
    MapRow row;
    row.Add(Missed(Milliseconds(100)));
    row.Add(Paid(1, 0));
    row.Add(Missed(Milliseconds(100)));
    row.Add(Missed(Milliseconds(10)));
    ASSERT_EQ(row.Deadlines().size(), 2U);
    EXPECT_EQ(row.Deadlines()[0].length, 2U);
    EXPECT_EQ(row.Deadlines()[1].deadline, Milliseconds(10));
}

TEST(MapRow, NeedsOneStepForAnswersThatGrowAlike) {
    MapRow row;
    for (std::uint32_t items = 1; items <= 1000; ++items) {
        row.Add(Paid(items, 0));
    }
    EXPECT_EQ(row.Steps().size(), 1U);
}

}  // namespace
}  // namespace qxmix
