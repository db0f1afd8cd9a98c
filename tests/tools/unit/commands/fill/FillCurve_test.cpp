#include "commands/fill/FillCurve.h"

#include <gtest/gtest.h>

namespace qxmix {
namespace {

constexpr std::uint32_t kHundred = 100;

Money WorthOf(const Bundles& bundles) {
    Money worth = Money::Of(50, 0).Times(bundles[0]);
    worth += Money::Of(20, 0).Times(bundles[1]);
    return worth;
}

FillPoint Point(const Bundles& bundles, std::uint64_t served) {
    FillPoint point;
    point.bundles = bundles;
    point.worth = WorthOf(bundles);
    point.promised = {served, kHundred};
    return point;
}

std::vector<Bundles> BundlesOf(const std::vector<FillPoint>& points) {
    std::vector<Bundles> bundles;
    for (const FillPoint& point : points) {
        bundles.push_back(point.bundles);
    }
    return bundles;
}

TEST(BestPoints, AreThoseOfWhichNoneServesAsMuchForLess) {
    const std::vector<FillPoint> points = {Point({3, 0}, 80), Point({1, 1}, 40), Point({2, 0}, 35),
                                           Point({0, 5}, 60), Point({2, 1}, 60), Point({4, 0}, 80)};
    EXPECT_EQ(BundlesOf(BestPoints(points, {3, 0})),
              (std::vector<Bundles>{{1, 1}, {0, 5}, {3, 0}}));
}

TEST(BestPoints, HaveTheProposedOneInThePlaceOfOthersForAsMuchMoney) {
    const std::vector<FillPoint> points = {Point({2, 0}, 70), Point({0, 5}, 75), Point({3, 0}, 90)};
    EXPECT_EQ(BundlesOf(BestPoints(points, {2, 0})), (std::vector<Bundles>{{2, 0}, {3, 0}}));
    EXPECT_EQ(BundlesOf(BestPoints(points, {0, 5})), (std::vector<Bundles>{{0, 5}, {3, 0}}));
    EXPECT_TRUE(BestPoints(points, {9, 9}).empty());
}

TEST(PointsBelow, GoDownToHalfOfTheMoneyByTheWayThatServesMost) {
    std::vector<Bundles> asked;
    const auto ask = [&asked](const Bundles& bundles) -> std::optional<FillPoint> {
        asked.push_back(bundles);
        return Point(bundles, bundles[0] * 2 + bundles[1]);
    };
    const std::vector<FillPoint> points = PointsBelow({16, 40}, &WorthOf, ask);
    EXPECT_EQ(BundlesOf(points), asked);
    // 1600: a sixteenth of it are two of the one or five of the other, which serve more.
    EXPECT_EQ(asked.front(), (Bundles{14, 40}));
    EXPECT_EQ(asked[1], (Bundles{16, 35}));
    EXPECT_EQ(asked[2], (Bundles{12, 40}));
    EXPECT_TRUE(WorthOf(asked.back()) < Money::Of(801, 0));
    EXPECT_LE(asked.size(), 16U);
}

TEST(PointsBelow, PassOverWhatIsDangerous) {
    std::size_t asked = 0;
    const auto ask = [&asked](const Bundles& bundles) -> std::optional<FillPoint> {
        ++asked;
        return bundles[0] < 4 ? std::nullopt : std::make_optional(Point(bundles, bundles[1]));
    };
    for (const FillPoint& point : PointsBelow({4, 4}, &WorthOf, ask)) {
        EXPECT_EQ(point.bundles[0], 4U);
    }
    EXPECT_GT(asked, 4U);
}

}  // namespace
}  // namespace qxmix
