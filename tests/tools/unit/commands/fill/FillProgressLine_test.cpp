#include "commands/fill/FillProgressLine.h"

#include <gtest/gtest.h>

namespace qxmix {
namespace {

std::string
ProgressAfter(std::chrono::seconds passed, const FillProgress& now, const std::string& best = "") {
    return FillProgressText("fill", now, best, passed);
}

TEST(FillProgressLine, TellsLoadingsTheTimeLeftAndTheBest) {
    FillProgress now;
    now.mix = 3;
    now.expected = 150;
    EXPECT_EQ(ProgressAfter(std::chrono::seconds(0), now), "fill  mix 3  0 of about 150 loadings");
    now.tried = 50;
    EXPECT_EQ(ProgressAfter(std::chrono::seconds(4), now, "84000 EUR"),
              "fill  mix 3  50 of about 150 loadings  about 9 s left  best 84000 EUR");
    now.tried = 150;
    EXPECT_EQ(ProgressAfter(std::chrono::seconds(12), now),
              "fill  mix 3  150 of about 150 loadings  about 1 s left");
}

TEST(FillProgressLine, TellsChoicesOfNotesWhereThereAreSeveral) {
    FillProgress now;
    now.mix = 1;
    now.tried = 70;
    now.expected = 150;
    now.choice = 2;
    now.choices = 10;
    EXPECT_EQ(ProgressAfter(std::chrono::seconds(2), now),
              "fill  mix 1  2 of 10 choices of notes  about 9 s left");
}

}  // namespace
}  // namespace qxmix
