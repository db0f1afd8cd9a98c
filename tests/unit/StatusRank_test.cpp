#include "StatusRank.h"

#include <gtest/gtest.h>

namespace {

// The whole rule, cell by cell: S where the joining status replaces the current one, K where the
// current one is kept. Columns: joining status 0 to 9, then any other.
constexpr const char* kRule[] = {
    "KKKKKKKKKKK",  // 0 OK
    "SKSKKKKKKKK",  // 1 FULL
    "SKKKKKKKKKK",  // 2 HIGH
    "SSSKKKKKKKK",  // 3 LOW
    "SSSSKSKKKKK",  // 4 EMPTY
    "SSSSKKKKKKK",  // 5 INOP
    "SSSSSSKKKKK",  // 6 MISSING
    "SSSSSSSSSSS",  // 7 NOVAL
    "SSSSSSSSSSS",  // 8 NOREF
    "SSSSSSSSSSS",  // 9 MANIP
    "KKKKKKKKKKK",  // other
};
constexpr unsigned kOther = 10;

// Other statuses, among them those whose lower bits look like a known one.
constexpr std::uint16_t kOthers[] = {10, 11, 31, 32, 33, 39, 41, 64, 255, 256, 0x7FFF, 0xFFFF};

void ExpectCell(unsigned row, unsigned column, std::uint16_t current, std::uint16_t joining) {
    const std::uint16_t expected = kRule[row][column] == 'S' ? joining : current;
    EXPECT_EQ(KeptStatus(current, joining), expected) << current << " joined by " << joining;
}

TEST(KeptStatus, FollowsTheTableForKnownStatuses) {
    for (std::uint16_t current = 0; current < kOther; ++current) {
        for (std::uint16_t joining = 0; joining < kOther; ++joining) {
            ExpectCell(current, joining, current, joining);
        }
    }
}

TEST(KeptStatus, FollowsTheTableWhenAnUnknownStatusJoins) {
    for (std::uint16_t current = 0; current < kOther; ++current) {
        for (const std::uint16_t joining : kOthers) {
            ExpectCell(current, kOther, current, joining);
        }
    }
}

TEST(KeptStatus, NeverChangesAnUnknownStatus) {
    for (const std::uint16_t current : kOthers) {
        for (std::uint16_t joining = 0; joining < kOther; ++joining) {
            ExpectCell(kOther, joining, current, joining);
        }
        for (const std::uint16_t joining : kOthers) {
            ExpectCell(kOther, kOther, current, joining);
        }
    }
}

}  // namespace
