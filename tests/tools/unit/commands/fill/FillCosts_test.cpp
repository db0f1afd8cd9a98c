#include "commands/fill/FillCosts.h"

#include <gtest/gtest.h>

namespace qxmix {
namespace {

Costs CostsOf(const char* interest, const char* refill, const char* bundle) {
    return {*Money::Parse(interest), *Money::Parse(refill), *Money::Parse(bundle)};
}

std::string
PerDay(const Costs& costs, const char* load, std::uint32_t bundles, std::uint32_t days) {
    const auto cost = CostPerDay(costs, *Money::Parse(load), bundles, days);
    return cost ? cost->Text(2) : "none";
}

TEST(CostPerDay, IsTheVisitAndTheBundlesByTheDays) {
    EXPECT_EQ(PerDay(CostsOf("0", "80", "0.50"), "45000", 8, 3), "28.00");
    EXPECT_EQ(PerDay(CostsOf("0", "80", "0.50"), "45000", 8, 1), "84.00");
    EXPECT_EQ(PerDay(CostsOf("0", "10", "0"), "45000", 8, 3), "3.33");
}

TEST(CostPerDay, HasTheInterestOnWhatIsLoaded) {
    EXPECT_EQ(PerDay(CostsOf("3.65", "0", "0"), "10000", 8, 3), "1.00");
    EXPECT_EQ(PerDay(CostsOf("3.65", "0", "0"), "10000", 8, 300), "1.00");
    EXPECT_EQ(PerDay(CostsOf("3.6499", "0", "0"), "10000", 8, 3), "0.99");
    EXPECT_EQ(PerDay(CostsOf("3.65", "9", "0"), "10000", 8, 3), "4.00");
}

TEST(CostPerDay, IsNothingWhereNothingCosts) {
    EXPECT_EQ(PerDay(Costs(), "45000", 8, 3), "0.00");
    EXPECT_EQ(PerDay(CostsOf("9999999999", "0", "0"), "45000", 8, 3), "none");
    EXPECT_EQ(PerDay(CostsOf("0", "9999999999", "0"), "45000", 8, 3), "none");
}

}  // namespace
}  // namespace qxmix
