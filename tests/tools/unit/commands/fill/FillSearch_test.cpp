#include "commands/fill/FillSearch.h"

#include <algorithm>
#include <cstdint>
#include <gtest/gtest.h>
#include <map>
#include <random>

namespace qxmix {
namespace {

FillSpace SpaceOf(const std::vector<std::uint32_t>& worth, const Bundles& most) {
    FillSpace space;
    for (const std::uint32_t one : worth) {
        space.worth.push_back(Money::Of(one, 0));
    }
    space.most = most;
    return space;
}

std::uint32_t Below(std::mt19937& random, std::uint32_t n) {
    return static_cast<std::uint32_t>(random() % n);
}

/// All loadings of a space.
std::vector<Bundles> AllOf(const FillSpace& space) {
    std::vector<Bundles> all = {{}};
    for (const std::uint32_t most : space.most) {
        std::vector<Bundles> longer;
        for (const Bundles& bundles : all) {
            for (std::uint32_t count = 0; count <= most; ++count) {
                longer.push_back(bundles);
                longer.back().push_back(count);
            }
        }
        all = longer;
    }
    return all;
}

/// What the cheapest loading costs and is worth that reaches, all tried.
Price CheapestPrice(const FillSpace& space, const TriedLoadings::Reaches& reaches) {
    const TriedLoadings prices(space, reaches);
    std::vector<Price> all;
    for (const Bundles& bundles : AllOf(space)) {
        if (reaches(bundles)) {
            all.push_back(prices.PriceOf(bundles));
        }
    }
    return *std::min_element(all.begin(), all.end());
}

bool AreEqual(const Price& left, const Price& right) {
    return !(left < right) && !(right < left);
}

/// Whether any bundle can be taken out of a loading.
bool CanTakeOut(const TriedLoadings::Reaches& reaches, const Bundles& bundles) {
    for (std::size_t place = 0; place < bundles.size(); ++place) {
        Bundles less = bundles;
        if (less[place]-- > 0 && reaches(less)) {
            return true;
        }
    }
    return false;
}

/// Loadings from which several sums of weighted counts come to a limit: more is never less.
class Sums {
public:
    Sums(std::mt19937& random, const FillSpace& space) {
        for (int row = 0; row < 3; ++row) {
            std::vector<std::uint64_t> weights;
            std::uint64_t most = 0;
            for (const std::uint32_t count : space.most) {
                weights.push_back(random() % 7);
                most += weights.back() * count;
            }
            weights_.push_back(weights);
            limits_.push_back(most / 2);
        }
    }

    bool operator()(const Bundles& bundles) const {
        for (std::size_t row = 0; row < weights_.size(); ++row) {
            std::uint64_t sum = 0;
            for (std::size_t place = 0; place < bundles.size(); ++place) {
                sum += weights_[row][place] * bundles[place];
            }
            if (sum < limits_[row]) {
                return false;
            }
        }
        return true;
    }

private:
    std::vector<std::vector<std::uint64_t>> weights_;
    std::vector<std::uint64_t> limits_;
};

TEST(FindCheapest, IsTheCheapestOfAllWhereMoreIsNeverLess) {
    std::mt19937 random(1);
    for (int round = 0; round < 200; ++round) {
        const std::size_t count = 1 + random() % 4;
        std::vector<std::uint32_t> worth;
        Bundles most;
        for (std::size_t place = 0; place < count; ++place) {
            worth.push_back(Below(random, 50) + 1);
            most.push_back(Below(random, 5) + 1);
        }
        const FillSpace space = SpaceOf(worth, most);
        const Sums reaches(random, space);
        TriedLoadings loadings(space, reaches);
        Bundles best = most;
        FindCheapest(loadings, best);
        EXPECT_TRUE(AreEqual(loadings.PriceOf(best), CheapestPrice(space, reaches))) << round;
        EXPECT_TRUE(reaches(best));
        EXPECT_FALSE(CanTakeOut(reaches, best));
    }
}

TEST(FindCheapest, IsTheCheapestOfAllAlsoWhereManyAreCheaper) {
    std::mt19937 random(2);
    std::size_t bounded = 0;
    for (int round = 0; round < 12; ++round) {
        const Bundles most = {9, 11, 13, 12};
        const FillSpace space = SpaceOf({1009, 503, 201, 97}, most);
        const Sums reaches(random, space);
        TriedLoadings loadings(space, reaches);
        Bundles best = most;
        bounded += FindCheapest(loadings, best) == Cheapest::IfMoreIsMore ? 1 : 0;
        EXPECT_TRUE(AreEqual(loadings.PriceOf(best), CheapestPrice(space, reaches))) << round;
    }
    EXPECT_GT(bounded, 0U);
}

TEST(FindCheapest, CostsLeastOfAllWhereEachBundleHasACost) {
    std::mt19937 random(5);
    std::size_t worthMore = 0;
    for (int round = 0; round < 100; ++round) {
        const Bundles most = {2, 4, 6, 9};
        FillSpace space = SpaceOf({100, 50, 20, 10}, most);
        const Sums reaches(random, space);
        const Price cheapest = CheapestPrice(space, reaches);
        const std::uint32_t visit = Below(random, 4) * 10;
        for (const Money& worth : space.worth) {
            space.cost.push_back(worth);
            space.cost.back() += Money::Of(visit, 0);
        }
        TriedLoadings loadings(space, reaches);
        Bundles best = most;
        FindCheapest(loadings, best);
        EXPECT_TRUE(AreEqual(loadings.PriceOf(best), CheapestPrice(space, reaches))) << round;
        worthMore += cheapest.worth < loadings.PriceOf(best).worth ? 1 : 0;
    }
    EXPECT_GT(worthMore, 10U) << "the least money is not the least cost";
}

TEST(FindCheapest, IsTheLeastMoneyWhereBundlesCostNothing) {
    std::mt19937 random(6);
    for (int round = 0; round < 20; ++round) {
        const Bundles most = {3, 4, 5};
        FillSpace space = SpaceOf({100, 50, 20}, most);
        const Sums reaches(random, space);
        const Money least = CheapestPrice(space, reaches).worth;
        space.cost.assign(3, Money());
        TriedLoadings loadings(space, reaches);
        Bundles best = most;
        FindCheapest(loadings, best);
        EXPECT_TRUE(loadings.PriceOf(best).worth == least) << round;
    }
}

TEST(FindCheapest, IsTheCheapestOfAllInASmallSpaceWhereMoreMayBeLess) {
    std::mt19937 random(3);
    for (int round = 0; round < 100; ++round) {
        const Bundles most = {3, 4, 4};
        const FillSpace space = SpaceOf({100, 50, 20}, most);
        std::map<Bundles, bool> whims;
        for (const Bundles& bundles : AllOf(space)) {
            whims[bundles] = random() % 6 == 0;
        }
        whims[most] = true;
        const auto reaches = [&whims](const Bundles& bundles) { return whims.at(bundles); };
        TriedLoadings loadings(space, reaches);
        Bundles best = most;
        EXPECT_EQ(FindCheapest(loadings, best), Cheapest::OfAll);
        EXPECT_TRUE(AreEqual(loadings.PriceOf(best), CheapestPrice(space, reaches))) << round;
        EXPECT_TRUE(reaches(best));
    }
}

TEST(FindCheapest, LeavesNoBundleToTakeOutOfALargeSpaceWhereMoreMayBeLess) {
    std::mt19937 random(4);
    for (int round = 0; round < 20; ++round) {
        const Bundles most = {20, 30, 40, 40, 50};
        const FillSpace space = SpaceOf({10000, 5000, 2000, 2000, 1000}, most);
        const Sums sums(random, space);
        const std::uint32_t whim = Below(random, 1000000);
        const auto reaches = [&](const Bundles& bundles) {
            std::uint32_t mixed = whim;
            for (const std::uint32_t count : bundles) {
                mixed = (mixed ^ count) * 16777619U;
            }
            return bundles == most || (sums(bundles) && (mixed >> 8U) % 5 != 0);
        };
        TriedLoadings loadings(space, reaches);
        Bundles best = most;
        FindCheapest(loadings, best);
        EXPECT_TRUE(reaches(best));
        EXPECT_FALSE(CanTakeOut(reaches, best)) << round;
        EXPECT_LT(loadings.AskedCount(), 6000U);
    }
}

TEST(FindCheapest, AsksNothingOfWhatCannotBeEnough) {
    FillSpace space = SpaceOf({10, 1}, {5, 5});
    space.unloaded = Money::Of(7, 0);
    space.least = Money::Of(30, 0);
    TriedLoadings loadings(space, [](const Bundles& bundles) {
        EXPECT_GE(bundles[0] * 10 + bundles[1] + 7, 30U);
        return true;
    });
    Bundles best = {5, 5};
    EXPECT_EQ(FindCheapest(loadings, best), Cheapest::OfAll);
    EXPECT_EQ(best, (Bundles{2, 3}));
}

TEST(FindCheapest, AsksOfEachLoadingOnce) {
    std::map<Bundles, int> asked;
    const FillSpace space = SpaceOf({100, 50, 20}, {9, 9, 9});
    TriedLoadings loadings(space, [&asked](const Bundles& bundles) {
        EXPECT_EQ(++asked[bundles], 1);
        return bundles[0] * 5 + bundles[1] * 3 + bundles[2] >= 40;
    });
    Bundles best = {9, 9, 9};
    FindCheapest(loadings, best);
    EXPECT_EQ(asked.size(), loadings.AskedCount());
}

}  // namespace
}  // namespace qxmix
