#include "terminal/Progress.h"

#include <gtest/gtest.h>

namespace qxmix {
namespace {

TEST(ProgressText, TellsShareSpeedTimeLeftAndMisses) {
    EXPECT_EQ(ProgressText("map", {24600, 24}, 60000, std::chrono::milliseconds(3000)),
              "map  41%  24600/60000  8200/s  5 s left  (X 24)");
    EXPECT_EQ(ProgressText("map", {60000, 0}, 60000, std::chrono::milliseconds(3000)),
              "map  100%  60000/60000  20000/s  0 s left");
}

TEST(ProgressText, PromisesNoEndBeforeThereIsASpeed) {
    EXPECT_EQ(ProgressText("map", {0, 0}, 60000, std::chrono::milliseconds(600)),
              "map  0%  0/60000  0/s");
}

TEST(ProgressText, CountsLinesWhereNobodyKnowsTheTotal) {
    EXPECT_EQ(ProgressText("batch", {24600, 0}, std::nullopt, std::chrono::milliseconds(3000)),
              "batch  24600 lines  8200/s");
    EXPECT_EQ(ProgressText("batch", {1, 0}, std::nullopt, std::chrono::milliseconds(3000)),
              "batch  1 line  0/s");
}

}  // namespace
}  // namespace qxmix
