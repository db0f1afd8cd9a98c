#include "LintOf.h"

namespace qxmix {
namespace {

TEST(LintQX509, FindsSharesThatWrap) {
    // Two units: 2 x 40 x the larger count.
    EXPECT_EQ(Said(LintOf("EUR:50x53687091,20x9").Mixes({1, 3}), "QX509"), Lines{});
    EXPECT_EQ(Said(LintOf("EUR:50x53687092,20x9").Mixes({1, 3}), "QX509"),
              (Lines{"/mix: shares may be compared as wrapped numbers: uneven emptying (mix 3)"}));
    // Three: 3 x 40 x 6000 x 5965 is just below, of two that are neighbours in a circle.
    EXPECT_EQ(Said(LintOf("EUR:50x6000,20x10,10x5965").Mixes({3}), "QX509"), Lines{});
    EXPECT_EQ(Said(LintOf("EUR:50x6000,20x10,10x5966").Mixes({3}), "QX509").size(), 1U);
    EXPECT_EQ(Said(LintOf("EUR:50x4000000").Mixes({3}), "QX509"), Lines{}) << "one unit";
}

TEST(LintQX510, FindsEvennessThatWraps) {
    const auto said = [](const char* dispenser, std::uint16_t limit) {
        return Said(LintOf(dispenser).Mixes({2}).Limit(limit), "QX510");
    };
    // Two units: 2 x 46341^2 is the first above 2^32.
    EXPECT_EQ(said("EUR:50x9,20x9", 46340), Lines{});
    EXPECT_EQ(said("EUR:50x9,20x9", 46341),
              (Lines{"/maxDispenseItems: evenness may be compared as wrapped numbers"}));
    EXPECT_EQ(said("EUR:50x9,20x9:coinCylinder", 23170), Lines{});
    EXPECT_EQ(said("EUR:50x9,20x9:coinCylinder", 23171).size(), 1U);
    EXPECT_EQ(said("EUR:50x9", 65535), Lines{}) << "one unit";
    // Five units: 5 x 4 x 14655^2 is the first above 2^32. Of six none is compared.
    EXPECT_EQ(said("EUR:50x9,20x9,10x9,5x9,2x9", 14654), Lines{});
    EXPECT_EQ(said("EUR:50x9,20x9,10x9,5x9,2x9", 14655).size(), 1U);
    EXPECT_EQ(said("EUR:50x9,20x9,10x9,5x9,2x9,1x9", 65535), Lines{});
}

TEST(LintQX509, CountsTheItemsOfAllOtherUnits) {
    const auto wraps = [](const char* dispenser) {
        return !Said(LintOf(dispenser).Mixes({3}), "QX509").empty();
    };
    // Four: 4 x 40 x the larger of two neighbours x both others; 2^32 / 160 is 26843545.6.
    EXPECT_FALSE(wraps("EUR:50x2684354,20x1,10x1,5x10"));
    EXPECT_TRUE(wraps("EUR:50x2684355,20x1,10x1,5x10"));
    EXPECT_TRUE(wraps("EUR:50x10,20x1,10x1,5x2684355")) << "wherever they stand";
    EXPECT_TRUE(wraps("EUR:50x1,20x10,10x2684355,5x1"));
    EXPECT_FALSE(wraps("EUR:50x4000000000,20x0"));
    // Five: 5 x 40 x three of them; 2^32 / 200 is 21474836.48.
    EXPECT_FALSE(wraps("EUR:50x214748,20x10,10x10,5x1,2x1"));
    EXPECT_TRUE(wraps("EUR:50x214749,20x10,10x10,5x1,2x1"));
    EXPECT_FALSE(wraps("EUR:50x214749,20x10,10x10,5x1,2x1,1x1")) << "six are not searched";
}

TEST(LintAdvisable, NoMixThatComparesWhatMayWrap) {
    const auto advisable = [](const char* dispenser, std::uint16_t limit, std::uint16_t mix) {
        return IsAdvisable(LintOf(dispenser).Limit(limit).Case(), mix);
    };
    EXPECT_TRUE(advisable("EUR:50x9,20x9", 46340, 2));
    EXPECT_FALSE(advisable("EUR:50x9,20x9", 46341, 2));
    EXPECT_TRUE(advisable("EUR:50x53687091,20x9", 40, 3));
    EXPECT_FALSE(advisable("EUR:50x53687092,20x9", 40, 3));
    EXPECT_TRUE(advisable("EUR:50x53687092,20x9", 40, 1)) << "compares neither";
    EXPECT_TRUE(advisable("EUR:50x53687092,20x9", 40, 2));
    EXPECT_FALSE(advisable("EUR:50x9,20x9", 40, 4)) << "takes the first fit";
    EXPECT_FALSE(advisable("EUR:50x9,20x9", 40, 9));
}

TEST(LintAdvisable, NoMixThatWasSlowOrTookTooMuchAnywhere) {
    LintCase lint = LintOf("EUR:50x9,20x9").Amounts({50, 30}).Case();
    const auto answer = [&lint](Outcome outcome, int milliseconds) {
        MapCell cell;
        cell.outcome = outcome;
        cell.took = Milliseconds(milliseconds);
        lint.mixes.front().row = MapRow();
        lint.mixes.front().row.Add(cell);
        return IsAdvisable(lint, 1);
    };
    EXPECT_TRUE(answer(Outcome::Paid, 0));
    for (const OutcomeRow& row : OutcomeTable()) {
        const bool isDangerous =
            row.outcome == Outcome::Overpaid || row.outcome == Outcome::Overdrawn ||
            row.outcome == Outcome::NoAnswer || row.outcome == Outcome::Crashed;
        EXPECT_EQ(answer(row.outcome, 0), !isDangerous) << row.name;
    }
    lint.slow = Milliseconds(20);
    EXPECT_TRUE(answer(Outcome::Paid, 20));
    EXPECT_FALSE(answer(Outcome::Paid, 21));
    EXPECT_TRUE(answer(Outcome::Paid, 0));
    for (const Outcome one : {Outcome::Overpaid, Outcome::Overdrawn, Outcome::NoAnswer}) {
        for (const Outcome other : {Outcome::Overdrawn, Outcome::NoAnswer, Outcome::Crashed}) {
            MapCell cell;
            cell.outcome = one;
            lint.mixes.front().row = MapRow();
            lint.mixes.front().row.Add(cell);
            cell.outcome = other;
            lint.mixes.front().row.Add(cell);
            EXPECT_FALSE(IsAdvisable(lint, 1)) << "one of each";
        }
    }
    EXPECT_TRUE(answer(Outcome::Paid, 0));
    lint.payers[30].dangerous.insert(2);
    EXPECT_TRUE(IsAdvisable(lint, 1));
    EXPECT_FALSE(IsAdvisable(lint, 2)) << "although it was not asked at first";
    lint.payers[30].dangerous.insert(1);
    EXPECT_FALSE(IsAdvisable(lint, 1));
}

TEST(LintQX510, LowersTheLimitWhereWhatIsPaidStaysWithinIt) {
    const auto advice = [](const char* dispenser, std::uint32_t amount) {
        return LintOf(dispenser)
            .Mixes({2})
            .Limit(65535)
            .Amounts({amount})
            .Findings("QX510")
            .front()
            .advice;
    };
    EXPECT_EQ(advice("EUR:50x9,20x9", 100), "lower the limit to 46340");
    // All that is there, which is as much as the lower limit allows, or two more.
    EXPECT_EQ(advice("EUR:50x23170,20x23170", 23170 * 70), "lower the limit to 46340");
    EXPECT_EQ(advice("EUR:50x23171,20x23171", 23171 * 70), "choose another mix");
    EXPECT_EQ(advice("EUR:50x23171,20x23171", 23170 * 70), "lower the limit to 46340");
    EXPECT_EQ(advice("EUR:50x9,20x9", 1000), "lower the limit to 46340") << "refused";
    const LintOf both = LintOf("EUR:50x200,20x200").Mixes({2, 7}).Limit(65535).Amounts({100});
    EXPECT_EQ(both.Findings("QX510").front().advice, "lower the limit to 46340");
    EXPECT_EQ(LintOf("EUR:50x9,20x9:coinCylinder")
                  .Mixes({1, 2})
                  .Limit(30000)
                  .Amounts({100})
                  .Findings("QX510")
                  .front()
                  .advice,
              "lower the limit to 23170");
    EXPECT_EQ(LintOf("EUR:50x70000,20x9")
                  .Mixes({2})
                  .Limit(60000)
                  .Amounts({60001 * 50})
                  .Findings("QX510")
                  .front()
                  .advice,
              "choose another mix")
        << "the limit stops it already";
}

TEST(LintQX511, FindsTotalsThatAreRounded) {
    EXPECT_EQ(Said(LintOf("EUR:4x4194304"), "QX511"), Lines{});
    EXPECT_EQ(
        Said(LintOf("EUR:4x4194304,1x1"), "QX511"),
        (Lines{"/cassettes: the units hold more than 16777216: the total is rounded to single "
               "precision, and amounts near it, and partial amounts, are off"}));
    EXPECT_EQ(Said(LintOf("CHF:50x4000").Exponent(-2), "QX511").size(), 1U) << "20,000,000";
    EXPECT_EQ(Said(LintOf("CHF:50x4000"), "QX511"), Lines{});
    EXPECT_EQ(Said(LintOf("EUR:4x4194304,5x9:rejectCassette,USD9x9"), "QX511"), Lines{});
}

}  // namespace
}  // namespace qxmix
