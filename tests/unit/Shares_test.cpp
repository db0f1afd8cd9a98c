// The bound and the lines of equal emptying, compared with plain scores.

#include "ShareBound.h"
#include "ShareLine.h"
#include "TableBuilder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace {

constexpr int kDraws = 40000;

/// Draws units whose counts multiply to about 2^24 to 2^36, and counts of theirs.
class Draws {
public:
    std::uint32_t Below(std::uint32_t end) {
        return static_cast<std::uint32_t>(generator_() % end);
    }

    SearchUnits Units(unsigned fewest) {
        const unsigned n = fewest + Below(6 - fewest);
        const double bits = (24 + Below(120) / 10.0) / n;
        Table table;
        for (unsigned unit = 0; unit < n; ++unit) {
            const double more = Below(2000) / 1000.0 - 1;
            const auto count = static_cast<std::uint32_t>(std::exp2(bits + more));
            if (Below(5) == 0) {
                table.Coin(1 + Below(200), count);
            } else {
                table.Bill(1 + Below(200), count);
            }
        }
        return table.Limit(Below(3) == 0 ? 1 + Below(200) : 65535).Units();
    }

    /// Nearly all or nearly nothing of most units: so sums come to 2^32.
    Counts CombinationOf(const SearchUnits& units) {
        Counts combination{};
        bool many = Below(2) == 0;
        for (unsigned unit = 0; unit < units.n; ++unit, many = !many) {
            const std::uint32_t most = std::min(units.counts[unit], units.limit / units.n);
            const std::uint32_t few = Below(most / 4 + 1);
            const std::uint32_t kind = Below(4);
            combination[unit] = kind == 0 ? Below(most + 1) : many ? most - few : few;
        }
        return combination;
    }

private:
    std::mt19937 generator_{20261122};
};

/// What the units from `from` on pay.
std::uint32_t WorthFrom(const SearchUnits& units, const Counts& combination, unsigned from) {
    std::uint32_t worth = 0;
    for (unsigned unit = from; unit < units.n; ++unit) {
        worth += units.values[unit] * combination[unit];
    }
    return worth;
}

ChosenShares ChosenUpTo(unsigned level, const Shares& shares, const Counts& combination) {
    ChosenShares chosen(shares);
    for (unsigned unit = 0; unit <= level; ++unit) {
        chosen.Choose(unit, combination[unit]);
    }
    return chosen;
}

TEST(ShareBound, IsNeverAboveTheScoreOfACombinationThatFollows) {
    Draws draws;
    int wrapped = 0;
    for (int draw = 0; draw < kDraws; ++draw) {
        const SearchUnits units = draws.Units(3);
        const Shares shares(units);
        const ShareBound bound(units, shares, 0);
        const Counts combination = draws.CombinationOf(units);
        const std::uint32_t score = shares.Score(combination);
        const ChosenShares all = ChosenUpTo(units.n - 1, shares, combination);
        wrapped += all.Bits(units.n - 1) >> 31U == 0 && all.AroundCycle(units.n - 1) > score;
        for (unsigned level = 0; level + 2 < units.n; ++level) {
            ASSERT_FALSE(bound.IsAbove(score, ChosenUpTo(level, shares, combination), level,
                                       WorthFrom(units, combination, level + 1)))
                << "draw " << draw << ", level " << level;
        }
    }
    EXPECT_GT(wrapped, kDraws / 100);
}

TEST(ShareBound, IsNeverAboveTheScoreOfACombinationThatFallsShort) {
    Draws draws;
    for (int draw = 0; draw < kDraws; ++draw) {
        const SearchUnits units = draws.Units(3);
        const Shares shares(units);
        const std::uint32_t shortfall = 1 + draws.Below(20000);
        const ShareBound bound(units, shares, shortfall);
        const Counts combination = draws.CombinationOf(units);
        for (unsigned level = 0; level + 1 < units.n; ++level) {
            ASSERT_FALSE(bound.IsAbove(shares.Score(combination),
                                       ChosenUpTo(level, shares, combination), level,
                                       WorthFrom(units, combination, level + 1) + shortfall))
                << "draw " << draw << ", level " << level;
        }
    }
}

/// The sums that first counts allow, in real numbers.
class RealBound {
public:
    RealBound(const SearchUnits& searched, const Counts& combination, unsigned level)
        : units_(searched), level_(level) {
        for (unsigned unit = 0; unit < units_.n; ++unit) {
            whole_ *= units_.counts[unit];
        }
        for (unsigned unit = 0; unit < units_.n; ++unit) {
            shares_.push_back(unit <= level ? ShareOf(unit, combination[unit]) : 0);
        }
        least_ = SumOf({shares_.begin(), shares_.begin() + level + 1});
    }

    double Least() const { return least_; }
    double Whole() const { return whole_; }

    /// The largest sum, as far as the bound looks; infinite where a share may come to 2^31.
    double Most(double rest) const {
        double largest = *std::max_element(shares_.begin(), shares_.end());
        double sum = 0;
        for (unsigned unit = 1; unit <= level_; ++unit) {
            sum += std::abs(shares_[unit] - shares_[unit - 1]);
        }
        double before = shares_[level_];
        for (unsigned unit = level_ + 1; unit < units_.n; ++unit) {
            const double most = ShareFor(unit, rest);
            largest = std::max(largest, most);
            sum += std::max(before, most);
            before = most;
        }
        if (largest >= 2147483640.0) {
            return INFINITY;
        }
        const unsigned last = units_.n - 1;
        return level_ + 3 < units_.n
                   ? sum + std::max(before, shares_[0])
                   : std::max(SumWith(last - 1, last, rest), SumWith(last, last - 1, rest));
    }

private:
    double MostItems(unsigned unit) const { return std::min(units_.counts[unit], units_.limit); }
    double ShareOf(unsigned unit, double items) const {
        return whole_ / units_.counts[unit] * items;
    }
    double ShareFor(unsigned unit, double worth) const {
        return ShareOf(unit, std::min(std::max(worth, 0.0) / units_.values[unit], MostItems(unit)));
    }
    /// When `one` of the last two units pays the most that it can, and the other one the rest.
    double SumWith(unsigned one, unsigned other, double rest) const {
        std::vector<double> cycle = shares_;
        cycle[one] = ShareFor(one, rest);
        cycle[other] = ShareFor(other, rest - MostItems(one) * units_.values[one]);
        return SumOf(cycle);
    }
    static double SumOf(const std::vector<double>& cycle) {
        double sum = std::abs(cycle.back() - cycle.front());
        for (std::size_t unit = 1; unit < cycle.size(); ++unit) {
            sum += std::abs(cycle[unit] - cycle[unit - 1]);
        }
        return sum;
    }

    const SearchUnits& units_;
    unsigned level_;
    double whole_ = 1;
    std::vector<double> shares_;
    double least_ = 0;
};

TEST(ShareBound, IsAboveJustWhereNoSumComesTo2To32) {
    constexpr double kWord = 4294967296.0;
    constexpr double kRounded = 16;
    Draws draws;
    int above = 0;
    for (int draw = 0; draw < kDraws; ++draw) {
        const SearchUnits units = draws.Units(4);
        const Shares shares(units);
        const ShareBound bound(units, shares, 0);
        const Counts combination = draws.CombinationOf(units);
        const unsigned level = draws.Below(units.n - 2);
        const std::uint32_t rest = WorthFrom(units, combination, level + 1);
        const RealBound real(units, combination, level);
        const ChosenShares chosen = ChosenUpTo(level, shares, combination);
        const auto best = static_cast<std::uint32_t>(draws.Below(1U << draws.Below(31)));
        if (real.Whole() >= kWord || real.Least() <= best) {
            ASSERT_FALSE(bound.IsAbove(best, chosen, level, rest)) << "draw " << draw;
            continue;
        }
        const double most = real.Most(rest);
        if (real.Whole() < kWord / 4 || most + kRounded < kWord) {
            ++above;
            ASSERT_TRUE(bound.IsAbove(best, chosen, level, rest)) << "draw " << draw;
        } else if (most > kWord + kRounded) {
            ASSERT_FALSE(bound.IsAbove(best, chosen, level, rest)) << "draw " << draw;
        }
    }
    EXPECT_GT(above, kDraws / 10);
}

TEST(ShareBound, LeavesToBeTriedWhatHasAShareOf2To31) {
    const SearchUnits units =
        Table().Bill(500, 100).Bill(200, 100).Bill(100, 100).Bill(50, 100).Bill(20, 40).Units();
    const Shares shares(units);
    const ShareBound bound(units, shares, 1);
    // Of 4,000,000,000: the two differences beside it come to less than 2^32, the wrapped ones too.
    EXPECT_TRUE(bound.IsAbove(0, ChosenUpTo(2, shares, {0, 53, 0}), 2, 0));
    EXPECT_FALSE(bound.IsAbove(0, ChosenUpTo(2, shares, {0, 54, 0}), 2, 0));
}

/// A line of combinations, and what is found on it by trying all.
struct Line {
    SearchUnits units;
    Counts head{};
    std::uint32_t counts = 0;
    ExactWalk walk;

    explicit Line(Draws& draws) : units(draws.Units(3)), walk(units) {
        head = draws.CombinationOf(units);
        const unsigned last = units.n - 1;
        head[last - 1] = draws.Below(units.counts[last - 1] + 1);
        head[last] = draws.Below(draws.Below(2) == 0 ? 2 : units.counts[last] + 1);
        counts = 1 + std::min(head[last - 1] / walk.ItemsTaken(),
                              (units.counts[last] - head[last]) / walk.ItemsGiven());
        if (draws.Below(3) == 0) {
            counts = 1 + draws.Below(counts);
        }
    }

    Line(const SearchUnits& searched, const Counts& first, std::uint32_t length)
        : units(searched), head(first), counts(length), walk(units) {}

    Counts At(std::uint32_t step) const {
        Counts combination = head;
        combination[units.n - 2] -= step * walk.ItemsTaken();
        combination[units.n - 1] += step * walk.ItemsGiven();
        return combination;
    }
};

/// Follows a line with what is known already.
void ExpectTheBestOf(const Line& line, const Shares& shares, const MostEven<Shares>& known) {
    MostEven<Shares> plain = known;
    for (std::uint32_t step = 0; step < line.counts; ++step) {
        plain.Keep(line.At(step), shares.Score(line.At(step)));
    }
    MostEven<Shares> followed = known;
    ShareLine(followed, line.walk)
        .Follow(ChosenUpTo(line.units.n - 3, shares, line.head), line.head, line.counts);
    ASSERT_EQ(followed.best, plain.best);
    ASSERT_EQ(followed.found, plain.found);
    ASSERT_TRUE(followed.isFound);
}

TEST(ShareLine, KeepsTheFirstOfTheMostEvenOfALine) {
    Draws draws;
    int beyondWrap = 0;
    for (int draw = 0; draw < kDraws; ++draw) {
        const Line line(draws);
        const Shares shares(line.units);
        MostEven<Shares> known(line.units, shares);
        ExpectTheBestOf(line, shares, known);
        const Counts combination = line.At(draws.Below(line.counts));
        beyondWrap +=
            ChosenUpTo(line.units.n - 1, shares, combination).AroundCycle(line.units.n - 1) >=
            Shares::kWord;
        // As low as somewhere on the line, found before it and after it.
        known.isFound = true;
        known.best = shares.Score(combination);
        known.found[0] = line.head[0] + 1;
        ExpectTheBestOf(line, shares, known);
        known.found = Counts{};
        ExpectTheBestOf(line, shares, known);
        ASSERT_FALSE(HasFailure()) << "draw " << draw;
    }
    EXPECT_GT(beyondWrap, kDraws / 100);
}

TEST(ShareLine, TriesAllOfFourBetweenWhichASumCanFallByMoreThan2To31) {
    // The shares of the last two units change by a third of 1.8 * 10^9 at each step. At the head,
    // which is worse than what is known, the sum falls by four times as much, which is above 2^31.
    const SearchUnits units =
        Table().Bill(1000, 65535).Bill(61, 150).Bill(50, 183).Limit(65535).Units();
    const Shares shares(units);
    const Line line(units, {65385, 150, 0}, 4);
    MostEven<Shares> known(units, shares);
    known.isFound = true;
    known.best = shares.Score(line.At(1));
    EXPECT_GT(shares.Score(line.At(0)), known.best);
    ExpectTheBestOf(line, shares, known);
}

}  // namespace
