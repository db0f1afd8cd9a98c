#include "commands/fill/FillLoading.h"

#include <gtest/gtest.h>

namespace qxmix {
namespace {

Cassette CassetteOf(std::uint32_t value, std::uint32_t count, const char* currency = "EUR") {
    Cassette cassette;
    cassette.value = value;
    cassette.count = count;
    cassette.currency = currency;
    return cassette;
}

Dispenser DispenserOf(const std::vector<Cassette>& cassettes) {
    Dispenser dispenser;
    dispenser.currency = "EUR";
    dispenser.cassettes = cassettes;
    return dispenser;
}

/// A run in which customers ask for these amounts.
std::shared_ptr<const Demand> RunOf(const std::vector<std::uint32_t>& amounts) {
    Demand demand;
    demand.currencies = {"EUR"};
    for (const std::uint32_t amount : amounts) {
        demand.withdrawals.push_back({0, amount, 0});
    }
    return std::make_shared<const Demand>(demand);
}

TEST(FillLoading, LoadsWhatGivesNotesOfTheCurrencyAndIsInOrder) {
    std::vector<Cassette> cassettes = {CassetteOf(100, 5), CassetteOf(50, 7, "USD"),
                                       CassetteOf(20, 9),  CassetteOf(0, 1),
                                       CassetteOf(10, 3),  CassetteOf(5, 2)};
    cassettes[2].status = 5;  // inoperative
    cassettes[4].type = 2;    // a reject cassette
    cassettes[5].status = 4;  // empty
    const FillLoading loading(DispenserOf(cassettes), 100, {RunOf({1000})});
    ASSERT_EQ(loading.Cassettes().size(), 2U);
    EXPECT_EQ(loading.Cassettes()[0].cassette, 0U);
    EXPECT_EQ(loading.Cassettes()[1].cassette, 5U);
    EXPECT_EQ(loading.Unloaded().Text(), "210");
}

TEST(FillLoading, GivesTheStatusThatFollowsFromTheCount) {
    std::vector<Cassette> cassettes = {CassetteOf(100, 5), CassetteOf(50, 7), CassetteOf(20, 9)};
    cassettes[0].status = 1;  // full
    cassettes[1].lowThreshold = 150;
    const FillLoading loading(DispenserOf(cassettes), 100, {RunOf({100000})});
    const Dispenser loaded = loading.With({2, 1, 0});
    EXPECT_EQ(loaded.cassettes[0].count, 200U);
    EXPECT_EQ(loaded.cassettes[0].status, 0);
    EXPECT_EQ(loaded.cassettes[1].count, 100U);
    EXPECT_EQ(loaded.cassettes[1].status, 3);
    EXPECT_EQ(loaded.cassettes[2].count, 0U);
    EXPECT_EQ(loaded.cassettes[2].status, 4);
    EXPECT_EQ(loading.WorthOf({2, 1, 0}).Text(), "25000");
}

TEST(FillLoading, HoldsNoMoreThanTheCapacityAndWhatCanBeDrawn) {
    std::vector<Cassette> cassettes = {CassetteOf(100, 5), CassetteOf(50, 7), CassetteOf(20, 9)};
    cassettes[0].capacity = 250;
    cassettes[1].bundle = 30;
    const FillLoading loading(DispenserOf(cassettes), 100, {RunOf({40000}), RunOf({40000, 20010})});
    EXPECT_EQ(loading.Most(), (Bundles{2, 41, 31}));  // 60010 in bundles of 1500 and of 2000
    EXPECT_EQ(loading.Holding({250, 30, 1}), (Bundles{2, 1, 1}));
    EXPECT_EQ(loading.Holding({101, 31, 0}), (Bundles{2, 2, 0}));
}

TEST(LeastWorth, IsWhatEnoughRunsPayBesideTheLargestWithdrawals) {
    FillQuestions questions;
    questions.dispenser = DispenserOf({CassetteOf(10, 1)});
    RunDemands demands(20, RunOf({10, 20, 30, 40}));
    demands[3] = RunOf({1000, 10, 10, 10});
    demands[4] = RunOf({50, 50, 50, 50});
    questions.runs = 20;
    EXPECT_EQ(LeastWorth(questions, demands, {3, 4}).Text(), "60");
    EXPECT_EQ(LeastWorth(questions, demands, {1, 1}).Text(), "200");
}

}  // namespace
}  // namespace qxmix
