#include "LintOf.h"
#include "commands/lint/LintCures.h"
#include "json/Json.h"
#include "mixes/MixTraits.h"

#include <algorithm>

namespace qxmix {
namespace {

/// What would make the first mix pay what it refuses, in the words of the advice.
std::string ForRefused(const LintOf& of) {
    const LintCase lint = of.Case();
    return CuresText(lint, lint.mixes.front().forRefused);
}

/// And what the limit stops.
std::string ForOverLimit(const LintOf& of) {
    const LintCase lint = of.Case();
    return CuresText(lint, lint.mixes.front().forOverLimit);
}

/// "40 to 200 in 10": the amounts that the first mix pays throughout.
std::string PaidRange(const LintOf& of) {
    const std::optional<AmountRange> range = of.Case().mixes.front().forRefused.amounts;
    return range ? std::to_string(range->from) + " to " + std::to_string(range->to) + " in " +
                       std::to_string(range->step)
                 : "none";
}

std::vector<std::uint16_t> AllBut(const std::vector<std::uint16_t>& without) {
    std::vector<std::uint16_t> mixes = AllMixes();
    mixes.erase(std::remove_if(mixes.begin(), mixes.end(),
                               [&without](std::uint16_t mix) {
                                   return std::count(without.begin(), without.end(), mix) != 0;
                               }),
                mixes.end());
    return mixes;
}

// Mix 5 passes over what is low, and so has no 50 here; 30 is neither 20 nor 50.
const char* const kLowFifties = "EUR:50x2500:low,20x2500";

TEST(LintCures, NameTheMixesThatPayAll) {
    const LintOf lint = LintOf(kLowFifties).Mixes({5}).Amounts({50, 70, 100});
    const LintCase asked = lint.Case();
    const LintCures& cures = asked.mixes.front().forRefused;
    EXPECT_EQ(cures.count, 2U) << "100 is five times 20";
    EXPECT_EQ(cures.payers, AllBut({4, 5, 9}))
        << "4 and 9 are not to be trusted with other amounts";
    EXPECT_EQ(cures.bestPayer, 0U);
}

TEST(LintCures, NameTheMixThatPaysMostWhereNonePaysAll) {
    const LintCase asked = LintOf(kLowFifties).Mixes({5}).Amounts({30, 50, 70}).Case();
    const LintCures& cures = asked.mixes.front().forRefused;
    EXPECT_EQ(cures.payers, std::vector<std::uint16_t>{});
    EXPECT_EQ(cures.bestPayer, 1U) << "the first of those that pay as many";
    EXPECT_EQ(cures.paidByBest, 2U);
}

TEST(LintCures, NeverNameAMixThatAnotherRuleWarnsOf) {
    const LintOf lint = LintOf(kLowFifties).Mixes({5}).Amounts({50, 70}).Limit(65535);
    EXPECT_EQ(lint.Case().mixes.front().forRefused.payers, AllBut({2, 4, 5, 7, 9}))
        << "the evenness of 2 and 7 may wrap under this limit";
}

TEST(LintCures, BringIntoServiceWhatIsThereBeforeTheyFill) {
    EXPECT_EQ(ForRefused(LintOf("EUR:50x2500,20x2500,10x9:empty").Amounts({30, 50})),
              "bring cassette 2, 10 EUR, into service: that would do");
    EXPECT_EQ(ForRefused(LintOf("EUR:50x2500,20x2500,10x0:empty").Amounts({30, 50})),
              "load 10 EUR: 2000 in cassette 2 would do");
    EXPECT_EQ(ForRefused(LintOf("EUR:50x2500,20x2500").Amounts({30, 50})),
              "load 10 EUR: 2000 in one more cassette would do");
}

TEST(LintCures, LoadNothingThatPaysOnlySome) {
    // A cassette of 10 pays 30 and not 35; of the notes up to 35 the largest that pays both is 5.
    EXPECT_EQ(ForRefused(LintOf("EUR:50x2500,20x2500,10x9:empty").Amounts({30, 35})),
              "load 5 EUR: 2000 in one more cassette would do");
    EXPECT_EQ(ForRefused(LintOf("EUR:50x2500,20x2500").Amounts({31, 35})),
              "load 1 EUR: 2000 in one more cassette would do");
}

TEST(LintCures, LoadNothingThatTakesFromWhatIsPaid) {
    // All places are taken; only one of the cassettes with 20 can be spared, for 10 or for 5.
    const auto cures = [](std::vector<std::uint32_t> amounts, std::uint16_t limit) {
        return ForRefused(LintOf("EUR:200x9,20x1,20x3,500x9,1000x9,USD5x9")
                              .Amounts(std::move(amounts))
                              .Limit(limit));
    };
    EXPECT_EQ(cures({30, 60}, 5), "load 10 EUR: 2000 in cassette 2 instead would do")
        << "60 is 20 and four times 10 then";
    EXPECT_EQ(cures({30, 80}, 5), "load 10 EUR: 2000 in cassette 1 instead would do")
        << "80 is three times 20 and two times 10 then";
    EXPECT_EQ(cures({30, 80}, 4), "") << "80 needs all four";
}

TEST(LintCures, LoadNothingForTheMixesThatTakeTheFirstFit) {
    const LintOf lint = LintOf("EUR:50x1:empty,20x9").Mixes({4}).Amounts({30});
    const LintCase asked = lint.Case();
    EXPECT_EQ(asked.mixes.front().forRefused.count, 1U);
    EXPECT_FALSE(asked.mixes.front().forRefused.loading);
    EXPECT_EQ(asked.mixes.front().forRefused.paidByLoading, 0U);
}

TEST(LintCures, LoadWhatPaysMostWhereAMixHasNothingToDrawFrom) {
    EXPECT_EQ(ForRefused(LintOf("EUR:50x9:empty").Amounts({20, 50, 100})),
              "bring cassette 0, 50 EUR, into service: that would pay 2 of 3");
    EXPECT_EQ(ForRefused(LintOf("EUR:50x1:empty").Amounts({20, 50, 100})),
              "load 50 EUR: 2000 in cassette 0 would pay 2 of 3")
        << "one note alone pays but 50";
    EXPECT_EQ(ForRefused(LintOf("EUR:50x9:empty").Amounts({50, 100})),
              "bring cassette 0, 50 EUR, into service: that would do");
    EXPECT_EQ(ForRefused(LintOf("EUR:50x1:empty,20x9:empty").Amounts({20, 40, 50})),
              "bring cassette 1, 20 EUR, into service: that would pay 2 of 3");
    EXPECT_EQ(ForRefused(LintOf("EUR:USD50x9").Amounts({50, 80, 100})),
              "load 100 EUR: 2000 in one more cassette would pay 1 of 3")
        << "of new cassettes the first that pays any";
}

TEST(LintCures, RaiseTheLimitNoFurtherThanNeeded) {
    const auto limit = [](const char* dispenser, std::vector<std::uint32_t> amounts) {
        const LintOf lint = LintOf(dispenser).Limit(2).Amounts(std::move(amounts));
        return lint.Case().mixes.front().forOverLimit.limit;
    };
    EXPECT_EQ(limit("EUR:50x10,20x10", {110}), 4U) << "50 and three times 20";
    EXPECT_EQ(limit("EUR:50x10,20x10", {100, 110, 120, 330}), 9U) << "330 is 5 x 50 and 4 x 20";
    EXPECT_EQ(limit("EUR:50x10,20x10", {50, 100}), std::nullopt) << "nothing is stopped";
    EXPECT_EQ(limit("EUR:10x9,1x9:coinDispenser", {32}), 3U);
    EXPECT_EQ(limit("EUR:10x9,1x9:coinDispenser", {24}), 4U) << "coins count apart";
}

TEST(LintCures, OfferALargerNoteWhereTheLimitStopsAnAmount) {
    EXPECT_EQ(ForOverLimit(LintOf("EUR:50x2500,20x2500").Limit(5).Amounts({50, 300})),
              "load 200 EUR: 2000 in one more cassette would do; or a limit of 6 would do");
    EXPECT_EQ(ForOverLimit(LintOf("EUR:50x2500,20x2500").Limit(5).Amounts({50, 330})),
              "a limit of 9 would do")
        << "200, 50 and four times 20 are six";
}

TEST(LintCures, OfferTheLongestStretchThatIsPaid) {
    const auto range = [](const char* dispenser, const AmountRange& asked, int exponent = 0) {
        return PaidRange(
            LintOf(dispenser).Range(asked).Exponent(static_cast<std::int16_t>(exponent)));
    };
    EXPECT_EQ(range("EUR:50x400,20x400", {10, 200, 10}), "40 to 200 in 10") << "30 is refused";
    EXPECT_EQ(range("EUR:50x400,20x400", {10, 200, 5}), "40 to 200 in 10");
    EXPECT_EQ(range("EUR:50x400,20x400", {5, 205, 20}), "none") << "no step ends in 0";
    EXPECT_EQ(range("EUR:50x400,20x400", {50, 200, 25}), "50 to 200 in 50") << "75 is refused";
    EXPECT_EQ(range("EUR:50x400,20x400", {30, 210, 40}), "70 to 190 in 40");
    EXPECT_EQ(range("EUR:50x400,20x400", {40, 190, 75}), "40 to 190 in 150") << "115 is no step";
    EXPECT_EQ(range("EUR:30x2,20x2", {10, 100, 10}), "20 to 80 in 10") << "100 stands alone";
    EXPECT_EQ(range("EUR:10x1,30x9", {10, 100, 10}), "30 to 40 in 10") << "the first of those";
    EXPECT_EQ(range("EUR:10x1,40x9,50x1", {10, 110, 10}), "40 to 60 in 10")
        << "as long as 80 to 100";
    EXPECT_EQ(range("EUR:50x9", {50, 60, 10}), "none") << "50 alone is no stretch";
    EXPECT_EQ(range("EUR:50x9,20x9:empty", {50, 100, 10}), "50 to 100 in 50");
    EXPECT_EQ(range("EUR:50x9:empty", {50, 100, 50}), "none") << "nothing to draw from";
    EXPECT_EQ(range("EUR:50x400,20x400", {1, 20, 1}, 1), "4 to 20 in 1") << "tens";
    EXPECT_EQ(range("EUR:50x400,20x400", {1, 20, 1}, 2), "none") << "no hundred in common";
}

TEST(LintCures, OfferNoButtonsBetweenTheSteps) {
    LintOf lint("EUR:50x400,20x400");
    lint.dispenser.amounts["EUR"].buttons = {45, 210};
    EXPECT_EQ(PaidRange(lint.Range({10, 200, 10})), "40 to 200 in 10");
}

}  // namespace
}  // namespace qxmix
