#include "workers/AdaptiveDeadline.h"

#include <gtest/gtest.h>

#include <string>

namespace qxmix {
namespace {

constexpr Milliseconds kWhole{100};
constexpr Milliseconds kTenth{10};

/// The deadline after amounts that were missed (X) or answered (any other letter).
Milliseconds After(const std::string& letters) {
    AdaptiveDeadline deadline(kWhole);
    for (const char letter : letters) {
        deadline.Note(letter == 'X');
    }
    return deadline.Next();
}

TEST(AdaptiveDeadline, IsWholeAtFirst) {
    EXPECT_EQ(After(""), kWhole);
}

TEST(AdaptiveDeadline, IsATenthAfterThreeMisses) {
    EXPECT_EQ(After("XX"), kWhole);
    EXPECT_EQ(After("XXX"), kTenth);
}

TEST(AdaptiveDeadline, CountsTheMissesAmongTheLastTen) {
    EXPECT_EQ(After("X.......XX"), kTenth);
    EXPECT_EQ(After("X........XX"), kWhole);
}

TEST(AdaptiveDeadline, StaysATenthUntilTenInARowAreAnswered) {
    EXPECT_EQ(After("XXX........."), kTenth);
    EXPECT_EQ(After("XXX.........X"), kTenth);
    EXPECT_EQ(After("XXX.........X........."), kTenth);
    EXPECT_EQ(After("XXX.........."), kWhole);
}

TEST(AdaptiveDeadline, BeginsAgainAfterTenInARow) {
    EXPECT_EQ(After("XXX..........XX"), kWhole);
    EXPECT_EQ(After("XXX..........XXX"), kTenth);
}

TEST(AdaptiveDeadline, IsNeverBelowAMillisecond) {
    AdaptiveDeadline deadline(Milliseconds(5));
    for (int misses = 0; misses < 3; ++misses) {
        deadline.Note(true);
    }
    EXPECT_EQ(deadline.Next(), Milliseconds(1));
}

}  // namespace
}  // namespace qxmix
