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
}

TEST(LintQX511, FindsTotalsThatAreRounded) {
    EXPECT_EQ(Said(LintOf("EUR:4x4194304"), "QX511"), Lines{});
    EXPECT_EQ(
        Said(LintOf("EUR:4x4194304,1x1"), "QX511"),
        (Lines{"/cassettes: the units hold more than 16777216: the total is rounded to single "
               "precision, and amounts near it, and partial amounts, are off"}));
    EXPECT_EQ(Said(LintOf("CHF:50x4000").Exponent(-2), "QX511").size(), 1U) << "20,000,000";
    EXPECT_EQ(Said(LintOf("CHF:50x4000"), "QX511"), Lines{});
}

}  // namespace
}  // namespace qxmix
