#include "amounts/Neighbours.h"

#include "AskedAmount.h"
#include "FakeModule.h"
#include "dispenser/InlineDispenser.h"
#include "mixes/MixTraits.h"

#include <gtest/gtest.h>

namespace qxmix {
namespace {

Surroundings Around(const Dispenser& dispenser,
                    std::uint32_t amount,
                    std::uint16_t mix = 1,
                    const char* library = QXMIX_MODULE) {
    AskedAmount asked(dispenser, amount, mix, Milliseconds(100), library);
    return AskAround(asked.questions, asked.answer, asked.asker);
}

Dispenser WithAmounts(const char* text, std::uint32_t min, std::uint32_t step) {
    Dispenser dispenser = ReadInlineDispenser(text);
    dispenser.amounts[dispenser.currency].min = min;
    dispenser.amounts[dispenser.currency].step = step;
    return dispenser;
}

TEST(Neighbours, AreTheNearestAmountsThatArePaid) {
    const Surroundings around = Around(ReadInlineDispenser("EUR:50x10,20x10"), 30);
    ASSERT_TRUE(around.below && around.above);
    EXPECT_EQ(around.below->amount, 20U);
    EXPECT_EQ(around.above->amount, 40U);
    EXPECT_EQ(around.above->taken[1], 2U);
}

TEST(Neighbours, AreNotLookedForBesideAnAmountThatIsPaid) {
    const Surroundings around = Around(ReadInlineDispenser("EUR:50x10,20x10"), 70);
    EXPECT_FALSE(around.below || around.above);
}

TEST(Neighbours, KeepTheStepOfTheAmountsThatCustomersCanAsk) {
    const Surroundings around = Around(WithAmounts("EUR:5x100", 25, 20), 47);
    ASSERT_TRUE(around.below && around.above);
    EXPECT_EQ(around.below->amount, 45U) << "25, 45, 65";
    EXPECT_EQ(around.above->amount, 65U);
}

TEST(Neighbours, AreLookedForFiveHundredStepsEachWay) {
    const Dispenser dispenser = WithAmounts("EUR:2000x5", 1, 1);
    EXPECT_EQ(Around(dispenser, 2500).below->amount, 2000U);
    EXPECT_FALSE(Around(dispenser, 2501).below);
    EXPECT_EQ(Around(dispenser, 3500).above->amount, 4000U);
    EXPECT_FALSE(Around(dispenser, 3499).above);
}

TEST(Neighbours, AreNotLookedForBelowOneAndAboveTheLargestAmount) {
    const Surroundings lowest = Around(WithAmounts("EUR:1000x5", 1, 1), 3);
    EXPECT_FALSE(lowest.below);
    const Surroundings highest = Around(WithAmounts("EUR:1000x5", 1, 1), UINT32_MAX);
    EXPECT_FALSE(highest.above);
}

TEST(Neighbours, TakeNoMoreThanTwoSecondsInAll) {
    const auto start = Clock::now();
    // None of 6, 16, 26, ... can be made, and mix 4 answers none of them.
    const Surroundings around =
        Around(WithAmounts("EUR:50x1000,20x900,100x100,200x40", 6, 10), 156, 4);
    EXPECT_FALSE(around.below || around.above);
    EXPECT_LT(Clock::now() - start, Milliseconds(2000 + 100 + 400));
}

TEST(OtherMixes, AreSortedByWhatTheyDo) {
    const Surroundings around = Around(ReadInlineDispenser("EUR:100x400,50x400,20x400"), 110, 1);
    std::vector<std::uint16_t> others = MixesWithout(&MixTraits::isFirstFit);
    others.erase(others.begin());  // the one that was asked
    EXPECT_EQ(around.payers, others);
    EXPECT_EQ(around.dangerous, (std::vector<std::uint16_t>{4, 9}));
    EXPECT_TRUE(around.unanswered.empty());
}

TEST(OtherMixes, AreNamedWhenTheyGiveNoAnswer) {
    const Surroundings around =
        Around(ReadInlineDispenser("EUR:50x1000,20x900,100x100,200x40"), 60, 1);
    EXPECT_EQ(around.unanswered, (std::vector<std::uint16_t>{4}));
}

TEST(OtherMixes, AreNamedWhenTheyCrash) {
    const Surroundings around =
        Around(ReadInlineDispenser("EUR:1x100"), static_cast<std::uint32_t>(FakeBehaviour::Crash),
               1, QXMIX_FAKE_MODULE);
    EXPECT_EQ(around.unanswered.size(), kLastMix - 1U);  // all but the one that was asked
}

}  // namespace
}  // namespace qxmix
