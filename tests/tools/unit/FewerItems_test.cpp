#include "answers/FewerItems.h"

#include "dispenser/InlineDispenser.h"

#include <gtest/gtest.h>

#include <random>

namespace qxmix {
namespace {

/// The fewest items that make an amount, by trying all; more than `most`: none do.
std::uint64_t FewestByTrying(const Dispenser& dispenser,
                             std::size_t cassette,
                             std::uint32_t rest,
                             std::uint64_t most) {
    if (rest == 0) {
        return 0;
    }
    if (cassette == dispenser.cassettes.size()) {
        return most + 1;
    }
    const Cassette& own = dispenser.cassettes[cassette];
    std::uint64_t fewest = most + 1;
    for (std::uint32_t items = 0; items <= own.count && items * own.value <= rest; ++items) {
        fewest = std::min(fewest, items + FewestByTrying(dispenser, cassette + 1,
                                                         rest - items * own.value, most));
    }
    return fewest;
}

TEST(FewItems, AreTheFewestThatMakeTheAmount) {
    std::mt19937 engine(7);
    const auto random = [&engine](std::uint32_t below) {
        return static_cast<std::uint32_t>(engine()) % below;
    };
    for (int number = 0; number < 2000; ++number) {
        Dispenser dispenser = ReadInlineDispenser("EUR:1x1,1x1,1x1,1x1");
        for (Cassette& cassette : dispenser.cassettes) {
            cassette.value = 1 + random(12);
            cassette.count = random(6);
        }
        const std::uint32_t amount = 1 + random(60);
        const std::uint64_t most = random(12);
        const std::uint64_t fewest = FewestByTrying(dispenser, 0, amount, most);
        const auto found = FewItemsFor(dispenser, amount, most);
        ASSERT_EQ(found.has_value(), fewest <= most) << number;
        if (found) {
            EXPECT_EQ(CountOf(*found), fewest) << number;
            EXPECT_TRUE(WorthOf(dispenser, *found) == Money::Of(amount, 0)) << number;
        }
    }
}

TEST(FewItems, ComeFromCassettesThatMayGive) {
    EXPECT_TRUE(FewItemsFor(ReadInlineDispenser("EUR:100x5,50x5:low"), 150, 2));
    EXPECT_FALSE(FewItemsFor(ReadInlineDispenser("EUR:100x5:full,50x5"), 150, 2));
    EXPECT_FALSE(FewItemsFor(ReadInlineDispenser("EUR:USD100x5,50x5"), 150, 2));
    EXPECT_FALSE(FewItemsFor(ReadInlineDispenser("EUR:100x5:retractCassette,50x5"), 150, 2));
}

TEST(FewItems, AreOfWhatAnAmountCanName) {
    EXPECT_TRUE(FewItemsFor(ReadInlineDispenser("EUR:5x5:coinCylinder,2x5:coinDispenser"), 7, 2));
    Dispenser halves = ReadInlineDispenser("EUR:50x5:coinDispenser,20x5");
    halves.cassettes[0].worth = Money::Parse("0.5");
    EXPECT_FALSE(FewItemsFor(halves, 1, 9)) << "two halves";
    EXPECT_TRUE(FewItemsFor(halves, 20, 1));
    halves.exponent = -1;
    EXPECT_TRUE(FewItemsFor(halves, 10, 2));
    EXPECT_FALSE(FewItemsFor(ReadInlineDispenser("EUR:0x5,20x5"), 30, 9));
    EXPECT_TRUE(FewItemsFor(ReadInlineDispenser("EUR:0x5,20x5"), 40, 2));
    EXPECT_FALSE(FewItemsFor(ReadInlineDispenser("EUR:0x5"), 40, 2));
}

TEST(FewItems, ComeFromTheFirstOfEqualCassettes) {
    const auto found = FewItemsFor(ReadInlineDispenser("EUR:20x5,50x5,50x5,50x5"), 70, 2);
    ASSERT_TRUE(found);
    EXPECT_EQ(*found, (CassetteItems{1, 1}));
}

TEST(FewItems, CountCentsByTheExponent) {
    Dispenser dispenser = ReadInlineDispenser("EUR:50x5,20x5");
    dispenser.exponent = -2;
    const auto found = FewItemsFor(dispenser, 7000, 2);
    ASSERT_TRUE(found);
    EXPECT_EQ(CountOf(*found), 2U);
}

TEST(FewItems, AreNotLookedForWithoutEnd) {
    const Dispenser dispenser =
        ReadInlineDispenser("EUR:1009x60000,1013x60000,1019x60000,1021x60000,1031x60000");
    FewItemsFor(dispenser, 40000001, 100000);
}

}  // namespace
}  // namespace qxmix
