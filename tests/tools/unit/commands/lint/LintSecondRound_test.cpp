#include "LintOf.h"

#include <algorithm>

namespace qxmix {
namespace {

using Amounts32 = std::vector<std::uint32_t>;
using Mixes = std::vector<std::uint16_t>;

const char* const kThreeNotes = "EUR:100x400,50x400,20x400";

/// The amounts for which all mixes are asked.
Amounts32 AskedOfAll(const LintOf& of) {
    Amounts32 amounts;
    for (const auto& [amount, payers] : of.Case().payers) {
        amounts.push_back(amount);
    }
    return amounts;
}

Mixes Sorted(const std::set<std::uint16_t>& mixes) {
    return {mixes.begin(), mixes.end()};
}

TEST(LintSecondRound, AsksAllMixesWhatOneDoesNotPay) {
    const LintOf lint = LintOf(kThreeNotes).Amounts({10, 30, 50, 100});
    EXPECT_EQ(AskedOfAll(lint), Amounts32{30}) << "10 is below the smallest note";
    EXPECT_EQ(AskedOfAll(LintOf(lint).Mixes({4})), (Amounts32{10, 30})) << "it pays too much";
    EXPECT_EQ(AskedOfAll(LintOf(lint).Amounts({50, 100})), Amounts32{});
    EXPECT_EQ(AskedOfAll(LintOf(lint).Limit(1)), (Amounts32{30}));
    EXPECT_EQ(AskedOfAll(LintOf(lint).Limit(1).Amounts({50, 150})), Amounts32{150});
    LintOf buttons = lint;
    buttons.dispenser.amounts["EUR"].buttons = {10, 50};
    EXPECT_EQ(AskedOfAll(buttons), (Amounts32{10, 30})) << "a dead button";
}

TEST(LintSecondRound, KnowsWhoPaysAndWhoTakesTooMuch) {
    const LintCase lint = LintOf("EUR:50x400:low,20x400").Mixes({4, 5}).Amounts({50, 110}).Case();
    ASSERT_EQ(lint.payers.size(), 2U);
    EXPECT_EQ(Sorted(lint.payers.at(110).payers), (Mixes{1, 2, 3, 4, 6, 7, 8, 9, 10}));
    EXPECT_EQ(Sorted(lint.payers.at(110).dangerous), Mixes{});
    const LintCase refused = LintOf(kThreeNotes).Amounts({30}).Case();
    EXPECT_EQ(Sorted(refused.payers.at(30).payers), Mixes{});
    EXPECT_EQ(Sorted(refused.payers.at(30).dangerous), (Mixes{4, 9}));
}

TEST(LintSecondRound, KeepsTheAnswersOfTheMixesThatWereNotAsked) {
    const LintCase lint = LintOf(kThreeNotes).Mixes({1, 2}).Amounts({30, 50, 90}).Case();
    ASSERT_EQ(lint.mixes.size(), 2U);
    ASSERT_EQ(lint.mixes.size() + lint.unasked.size(), AllMixes().size());
    for (const LintMix& mix : lint.mixes) {
        EXPECT_EQ(mix.row.Size(), 3U);
    }
    for (const LintMix& mix : lint.unasked) {
        EXPECT_EQ(mix.row.Size(), 1U) << "30 alone";
    }
}

TEST(LintCase, HasWhatWasAsked) {
    LintOf lint = LintOf(kThreeNotes).Mixes({3, 1}).Amounts({30, 50});
    lint.registryFile = "device.reg";
    lint.isRangeNamed = false;
    lint.slow = Milliseconds(77);
    lint.currencies = {"EUR", "USD"};
    const LintCase asked = lint.Case();
    EXPECT_EQ(asked.registryFile, "device.reg");
    EXPECT_NE(asked.registry, "");
    EXPECT_FALSE(asked.isRangeNamed);
    EXPECT_EQ(asked.slow, Milliseconds(77));
    EXPECT_EQ(asked.currencies, (std::vector<std::string>{"EUR", "USD"}));
    EXPECT_EQ(asked.amountCount, 2U);
    EXPECT_TRUE(asked.isComplete);
    EXPECT_EQ(asked.taken.minimum, 100U);
    EXPECT_EQ(asked.lastCode, "971A2") << "30 is refused";
    EXPECT_EQ(LintOf(lint).Amounts({50}).Case().lastCode, "");
    EXPECT_EQ(asked.mixes.front().mix, 1) << "in their order";
}

TEST(LintCase, AsksTheStepsAndTheButtonsBetweenThem) {
    MapQuestions range;
    range.dispenser = ReadInlineDispenser("EUR:50x9");
    range.from = 10;
    range.to = 30;
    range.step = 10;
    EXPECT_EQ(AmountsAndButtons(range), (Amounts32{10, 20, 30}));
    range.dispenser.amounts["EUR"].buttons = {40, 20, 5};
    EXPECT_EQ(AmountsAndButtons(range), (Amounts32{5, 10, 20, 30, 40}));
}

TEST(LintCase, KnowsWhatLiesBelowTheSmallestNote) {
    const LintCase asked = LintOf(kThreeNotes).Case();
    EXPECT_TRUE(IsBelowSmallest(asked.mixes.front(), 19));
    EXPECT_FALSE(IsBelowSmallest(asked.mixes.front(), 20));
    const LintCase none = LintOf("EUR:USD5x9").Case();
    EXPECT_FALSE(IsBelowSmallest(none.mixes.front(), 1)) << "there is none";
}

TEST(LintCase, IsGivenUpWhereAMixHasFewerAnswers) {
    LintCase asked = LintOf(kThreeNotes).Amounts({50, 100}).Case();
    EXPECT_FALSE(asked.IsGivenUp(asked.mixes.front()));
    asked.amountCount = 3;
    EXPECT_TRUE(asked.IsGivenUp(asked.mixes.front()));
}

TEST(LintSecondRound, KnowsWhatTheLimitAloneStops) {
    const LintCase lint =
        LintOf("EUR:50x10,20x10").Limit(5).Mixes({3}).Amounts({30, 60, 330, 2000}).Case();
    EXPECT_EQ(lint.mixes.front().paidWithoutLimit, std::set<std::uint32_t>{330});
    EXPECT_EQ(LintOf("EUR:50x10,20x10")
                  .Limit(9)
                  .Mixes({3})
                  .Amounts({330})
                  .Case()
                  .mixes.front()
                  .paidWithoutLimit,
              std::set<std::uint32_t>{});
}

TEST(LintSecondRound, SaysWhyTheFirstTenTookTooMuch) {
    Amounts32 amounts;
    for (std::uint32_t amount = 110; amount <= 2110; amount += 50) {
        amounts.push_back(amount);
    }
    const LintCase lint = LintOf(kThreeNotes).Mixes({4}).Amounts(amounts).Case();
    std::size_t overpaid = 0;
    ForEachAnswer(lint, lint.mixes.front(), [&overpaid](const LintAnswer& answer) {
        overpaid += answer.cell.outcome == Outcome::Overpaid ? 1U : 0U;
    });
    ASSERT_GT(overpaid, 10U);
    EXPECT_EQ(lint.mixes.front().whyTooMuch.size(), 10U);
}

TEST(LintSecondRound, SeesWhichUnitsGaveTooLittle) {
    const auto shortUnits = [](const char* dispenser, Amounts32 amounts) {
        const std::set<std::size_t> places =
            LintOf(dispenser).Amounts(std::move(amounts)).Case().mixes.front().shortUnits;
        return std::vector<std::size_t>(places.begin(), places.end());
    };
    using Places = std::vector<std::size_t>;
    EXPECT_EQ(shortUnits("EUR:50x400,20x400:full", {70}), Places{1});
    EXPECT_EQ(shortUnits("EUR:50x400:full,20x400:full", {70}), (Places{0, 1}));
    EXPECT_EQ(shortUnits("EUR:50x400,20x400", {70}), Places{});
    EXPECT_EQ(shortUnits("EUR:USD9x9,50x400,20x400:full", {70}), Places{2});
    EXPECT_EQ(shortUnits("EUR:50x400,20x400:full", {50, 100}), Places{}) << "20 is not needed";
}

}  // namespace
}  // namespace qxmix
