#include "demand/SimulationSummary.h"

#include "CashUnitCodes.h"
#include "dispenser/InlineDispenser.h"

#include <gtest/gtest.h>

namespace qxmix {
namespace {

SimulationStep Step(Outcome outcome, CassetteItems items = {}) {
    SimulationStep step;
    step.outcome = outcome;
    step.items = items;
    return step;
}

/// A hundred of 100 and of 20 EUR, and fifty of 50 USD.
Dispenser Before() {
    return ReadInlineDispenser("EUR:100x100,20x100,USD50x50");
}

TEST(DrainedDispenser, SumsUpWhatIsTaken) {
    DrainedDispenser drained(Before());
    drained.Add({60, 240, 0}, Step(Outcome::Paid, {2, 2}), Money::Of(240, 0));
    drained.Add({120, 150, 0}, Step(Outcome::PaidInPart, {1}), Money::Of(100, 0));
    const SimulationSummary summary = drained.Summary();
    EXPECT_EQ(summary.asked, 2U);
    EXPECT_EQ(summary.Served(), 1U);
    EXPECT_EQ(summary.InPart(), 1U);
    EXPECT_EQ(summary.notes, 5U);
    EXPECT_EQ(summary.coins, 0U);
    EXPECT_EQ(summary.paid, Money::Of(340, 0));
    EXPECT_EQ(summary.TenthsPerWithdrawal(), 25U);
    EXPECT_EQ(summary.end, (std::vector<std::uint32_t>{97, 98, 50}));
    EXPECT_EQ(summary.left, Money::Of(97 * 100 + 98 * 20, 0));
    EXPECT_EQ(summary.spread, 10U) << "970 and 980 thousandths; dollars do not count";
    EXPECT_FALSE(summary.firstRefusal.has_value());
    EXPECT_EQ(drained.Now().cassettes[0].count, 97U);
}

TEST(DrainedDispenser, RoundsItemsPerWithdrawal) {
    const auto tenths = [](std::uint64_t withdrawals, std::uint64_t notes, std::uint64_t coins) {
        SimulationSummary summary;
        summary.counts[static_cast<std::size_t>(Outcome::Paid)] = withdrawals;
        summary.notes = notes;
        summary.coins = coins;
        return summary.TenthsPerWithdrawal();
    };
    EXPECT_EQ(tenths(0, 0, 0), 0U);
    EXPECT_EQ(tenths(3, 3, 1), 13U);
    EXPECT_EQ(tenths(3, 5, 0), 17U);
    EXPECT_EQ(tenths(4, 1, 0), 3U) << "2.5 tenths";
    EXPECT_EQ(tenths(1, 7, 3), 100U);
}

TEST(DrainedDispenser, KeepsTheFirstRefusalAndWhatIsEmptied) {
    Dispenser before = Before();
    before.cassettes[1].emptyThreshold = 98;
    DrainedDispenser drained(before);
    drained.Add({60, 20, 0}, Step(Outcome::Paid, {0, 1}), Money::Of(20, 0));
    drained.Add({120, 20, 0}, Step(Outcome::Paid, {0, 1}), Money::Of(20, 0));
    drained.Add({180, 20, 0}, Step(Outcome::NotDispensable), Money());
    drained.Add({240, 40, 0}, Step(Outcome::Overpaid), Money());
    const SimulationSummary summary = drained.Summary();
    ASSERT_TRUE(summary.firstRefusal.has_value());
    EXPECT_EQ(summary.firstRefusal->withdrawal, 2U);
    EXPECT_EQ(summary.firstRefusal->asked.time, 180);
    EXPECT_EQ(summary.firstRefusal->outcome, Outcome::NotDispensable);
    EXPECT_EQ(summary.firstRefusal->left, Money::Of(100 * 100 + 98 * 20, 0));
    ASSERT_EQ(summary.emptied.size(), 1U);
    EXPECT_EQ(summary.emptied[0].withdrawal, 1U);
    EXPECT_EQ(summary.emptied[0].time, 120);
    EXPECT_EQ(summary.emptied[0].cassette, 1U);
    EXPECT_EQ(summary.Refused(), 1U);
    EXPECT_EQ(summary.Dangerous(), 1U);
}

TEST(DrainedDispenser, IsGivenUpForAnswersThatMayYetComeAlone) {
    DrainedDispenser drained(Before());
    SimulationStep proved = Step(Outcome::NoAnswer);
    proved.isProved = true;
    for (std::uint64_t miss = 0; miss < kMissesToGiveUp; ++miss) {
        EXPECT_FALSE(drained.IsGivenUp());
        drained.Add({}, proved, Money());
        drained.Add({}, Step(Outcome::Crashed), Money());
        drained.Add({}, Step(Outcome::NoAnswer), Money());
    }
    EXPECT_TRUE(drained.IsGivenUp());
    EXPECT_TRUE(drained.Summary().isGivenUp);
    EXPECT_FALSE(DrainedDispenser(Before()).Summary().isGivenUp);
    EXPECT_EQ(drained.Summary().misses, kMissesToGiveUp);
}

}  // namespace
}  // namespace qxmix
