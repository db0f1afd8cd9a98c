#include "dispenser/Draining.h"

#include "CashUnitCodes.h"
#include "dispenser/InlineDispenser.h"

#include <gtest/gtest.h>

namespace qxmix {
namespace {

constexpr auto kOk = static_cast<std::uint16_t>(CashUnitStatus::Ok);
constexpr auto kLow = static_cast<std::uint16_t>(CashUnitStatus::Low);
constexpr auto kEmpty = static_cast<std::uint16_t>(CashUnitStatus::Empty);
constexpr auto kMissing = static_cast<std::uint16_t>(CashUnitStatus::Missing);
constexpr auto kFull = static_cast<std::uint16_t>(CashUnitStatus::Full);

std::uint16_t StatusOf(std::uint32_t count, std::uint32_t low, std::uint32_t empty) {
    Cassette cassette;
    cassette.count = count;
    cassette.lowThreshold = low;
    cassette.emptyThreshold = empty;
    EXPECT_EQ(IsEmpty(cassette), StatusByCount(cassette) == kEmpty);
    return StatusByCount(cassette);
}

TEST(Draining, GivesAStatusByTheThresholds) {
    EXPECT_EQ(StatusOf(11, 10, 2), kOk);
    EXPECT_EQ(StatusOf(10, 10, 2), kLow);
    EXPECT_EQ(StatusOf(3, 10, 2), kLow);
    EXPECT_EQ(StatusOf(2, 10, 2), kEmpty);
    EXPECT_EQ(StatusOf(0, 0, 0), kEmpty);
    EXPECT_EQ(StatusOf(1, 0, 0), kOk);
}

TEST(Draining, ChangesTheCassettesThatGiveItems) {
    Dispenser dispenser = ReadInlineDispenser("EUR:100x5,50x5,20x5,10x5,5x5");
    dispenser.cassettes[1].status = kLow;
    dispenser.cassettes[2].status = kFull;
    dispenser.cassettes[4].lowThreshold = 9;
    TakeItems(dispenser, {5, 2, 5, 4, 0});
    std::vector<std::uint32_t> counts;
    std::vector<std::uint16_t> statuses;
    for (const Cassette& cassette : dispenser.cassettes) {
        counts.push_back(cassette.count);
        statuses.push_back(cassette.status);
    }
    EXPECT_EQ(counts, (std::vector<std::uint32_t>{0, 3, 0, 1, 5}));
    EXPECT_EQ(statuses, (std::vector<std::uint16_t>{kEmpty, kOk, kFull, kOk, kOk}));
}

TEST(Draining, AddsUpWhatIsHeldInTheDispensersCurrency) {
    Dispenser dispenser = ReadInlineDispenser("EUR:100x5,50x2,20x1");
    dispenser.cassettes[2].currency = "USD";
    EXPECT_EQ(ValueHeld(dispenser), Money::Of(600, 0));
    dispenser.cassettes[1].status = kMissing;
    EXPECT_EQ(ValueHeld(dispenser), Money::Of(600, 0));
    EXPECT_EQ(WorthOf(dispenser, {1, 2, 3}), Money::Of(260, 0));
    EXPECT_TRUE(WorthOf(dispenser, {}).IsZero());
}

}  // namespace
}  // namespace qxmix
