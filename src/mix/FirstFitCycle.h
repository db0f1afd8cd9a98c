#pragma once

#include "LastPair.h"
#include "PairRests.h"
#include "Refusal.h"
#include "RestsBackwards.h"

#include <utility>

/// First-fit emptying with three and more units, decided instead of run.
///
/// The innermost loop (LastPair.h) ends; the loop around it, over the counts of the `outer` unit,
/// never does. So the units before keep their first count, the outer count falls by one from line
/// to line, past 0 too, and after 2^32 lines everything repeats: what no line of this cycle accepts
/// is never accepted. From one line to the next the rest that the last two units have to pay rises
/// by the outer unit's value, modulo 2^32.
///
/// * A line whose rest is beyond the reach of the last two units is dead: it ends at its first
///   step. So rests matter from 0 up to the reach only, in runs of lines; a run ends where the rest
///   has wrapped round.
/// * The outer count is a part of one total. On line t that total is what the others of its kind
///   take, less t: within the limit it can be only on the first lines, and on the last, where it
///   has wrapped once. All lines between are over the limit whatever the last two units do.
///
/// Tests run it with words of fewer bits, through whole cycles beside the plain loops.
template <unsigned kWordBits>
class FirstFitCycle {
public:
    /// @param units  three to five, of values other than 0.
    explicit FirstFitCycle(const SearchUnits& units) noexcept
        : units_(units), pair_(units), outer_(units.n - 3), reach_(pair_.Reach()) {
        const std::uint32_t rest = TakeFirstCounts();
        const CommonDivisor common = CommonDivisorOf(OuterValue(), pair_.Divisor());
        stepDivisor_ = common.divisor;
        stepFactor_ = common.factor;
        stride_ = pair_.Divisor() / common.divisor;
        firstRest_ = rest;
    }

    /// Finds the first combination that makes the amount within the limit.
    ///
    /// @param refusal  receives the last combination over the limit before it; when nothing is
    ///   found, the last one of the cycle.
    /// @return false when there is none in the whole cycle: the loops never end.
    bool Find(Counts& found, Refusal& refusal) const noexcept {
        // All items that there are cannot lift the outer unit's total above 0 on later lines than
        // these, and only what the last but one unit runs past 0 can hold it down to the limit on
        // the last ones, where it has wrapped.
        std::uint64_t firstLines = 1;
        for (unsigned unit = 0; unit < units_.n; ++unit) {
            firstLines += units_.counts[unit];
        }
        const std::uint64_t lastLines = units_.limit + pair_.StepsPastZero() + 1;
        PairPoints points{};
        std::uint32_t passed{};
        Line line = LineAt(0);
        bool isFound = FindFrom(line, firstLines, 0, points, passed);
        if (!isFound) {
            line = LineAt(kWords - lastLines);
            isFound = FindFrom(line, kWords, kWords, points, passed);
        }
        if (isFound) {
            found = CombinationOf(line, points);
        }
        if (isFound && passed != 0) {
            pair_.ExchangeBack(points);
            refusal.Remember(CombinationOf(line, points));
        } else {
            RememberLastBefore(isFound ? line : LineAt(kWords), refusal);
        }
        return isFound;
    }

private:
    // NOLINTBEGIN(bugprone-dynamic-static-initializers) taken wrongly for what is made at run time
    static constexpr std::uint64_t kWords = std::uint64_t{1} << kWordBits;
    static constexpr std::uint64_t kToNextRun = kWords;
    // NOLINTEND(bugprone-dynamic-static-initializers)

    /// One turn of the loop over the outer count.
    struct Line {
        std::uint64_t number;
        std::uint32_t rest;  ///< for the last two units
    };

    static std::uint32_t Wrap(std::uint64_t number) noexcept {
        return static_cast<std::uint32_t>(number & (kWords - 1));
    }

    std::uint32_t OuterValue() const noexcept { return units_.values[outer_]; }

    /// Takes the counts that the loops start at, down to the outer unit's.
    ///
    /// @return what they leave.
    std::uint32_t TakeFirstCounts() noexcept {
        std::uint32_t rest = units_.amount;
        for (unsigned unit = 0; unit <= outer_; ++unit) {
            first_[unit] = units_.MostOf(unit, rest);
            rest -= units_.values[unit] * first_[unit];
            firstTotals_.Add(units_.areCoins[unit], first_[unit]);
        }
        return rest;
    }

    Line LineAt(std::uint64_t number) const noexcept {
        return {number, Wrap(firstRest_ + number * OuterValue())};
    }

    /// What the units before the last two take on a line.
    ///
    /// @param lap  0, or the whole cycle for lines whose total has wrapped.
    UnwrappedTotals TotalsOn(const Line& line, std::uint64_t lap) const noexcept {
        UnwrappedTotals totals = firstTotals_;
        totals.Add(units_.areCoins[outer_],
                   static_cast<std::int64_t>(lap) - static_cast<std::int64_t>(line.number));
        return totals;
    }

    Counts CombinationOf(const Line& line, const PairPoints& points) const noexcept {
        Counts combination = first_;
        combination[outer_] = Wrap(first_[outer_] - line.number);
        combination[outer_ + 1] = Wrap(static_cast<std::uint64_t>(points.inner));
        combination[outer_ + 2] = points.last;
        return combination;
    }

    /// Goes from a line to the first one before `end` that has a combination within the limit.
    bool FindFrom(Line& line,
                  std::uint64_t end,
                  std::uint64_t lap,
                  PairPoints& points,
                  std::uint32_t& passed) const noexcept {
        while (line.number < end) {
            std::uint64_t step = kToNextRun;
            if (line.rest >= reach_) {
                // dead, and so are all up to the next run
            } else if (line.rest % pair_.Divisor() != 0) {
                step = LinesToDivisible(line.rest);
            } else if (pair_.FindPoints(line.rest, points) &&
                       pair_.FindWithinLimit(TotalsOn(line, lap), points, passed)) {
                return true;
            } else {
                step = std::max(std::uint64_t{stride_}, LinesOffLimit(line, lap));
            }
            GoOn(line, step);
        }
        return false;
    }

    /// Goes on by so many lines, but to the first line of the next run at most.
    void GoOn(Line& line, std::uint64_t step) const noexcept {
        // No run has more lines than the cycle.
        std::uint64_t rest = line.rest + std::min(step, kToNextRun) * OuterValue();
        if (rest >= kWords) {
            step = (kWords - 1 - line.rest) / OuterValue() + 1;
            rest = line.rest + step * OuterValue();
        }
        line = {line.number + step, Wrap(rest)};
    }

    /// Remembers the last combination on the lines before this one. None of them was accepted, so
    /// it is one over the limit.
    void RememberLastBefore(const Line& line, Refusal& refusal) const noexcept {
        if (line.number == 0) {
            return;
        }
        const PairRests rests(units_, pair_.Divisor());
        const RestsBackwards<kWordBits> lines(OuterValue(), rests.Distance());
        const std::uint32_t rest = LineAt(line.number - 1).rest;
        std::uint64_t nearest = line.number;
        for (std::uint64_t series = 0; series < rests.Number(); ++series) {
            nearest = lines.LinesTo(rests.Series(series), rest, nearest);
        }
        if (nearest < line.number) {
            const Line last = LineAt(line.number - 1 - nearest);
            PairPoints points{};
            pair_.FindPoints(last.rest, points);
            pair_.Exchange(points.further, points);
            refusal.Remember(CombinationOf(last, points));
        }
    }

    /// How many lines on, within the run, the divisor of the last two divides the rest: rest +
    /// lines * outer value = 0 modulo the divisor. With everything divided by the divisor of both,
    /// the factor is the inverse of the outer value.
    std::uint64_t LinesToDivisible(std::uint32_t rest) const noexcept {
        if (rest % stepDivisor_ != 0) {
            return kToNextRun;
        }
        const std::uint64_t over = rest / stepDivisor_ % stride_;
        return (stride_ - over) * stepFactor_ % stride_;
    }

    /// After how many lines the total that the outer unit is part of can first lie within the limit
    /// again; 1 when this line does not tell.
    ///
    /// Between its two ends the total of a line changes evenly. Seen over the lines of a run, each
    /// end follows a straight line with one bend at most, where the last but one unit is used up:
    /// the lower end turns upwards there, the upper one downwards. So the slope that an end has
    /// here leads to the limit no later than the end itself comes there.
    std::uint64_t LinesOffLimit(const Line& line, std::uint64_t lap) const noexcept {
        const bool coins = units_.areCoins[outer_];
        const UnwrappedTotals totals = TotalsOn(line, lap);
        const std::int64_t others = coins ? totals.coins : totals.notes;
        PairEnd lower = pair_.MostOfInner(line.rest, coins);
        PairEnd upper = pair_.MostOfLast(line.rest, coins);
        if (pair_.ChangeOf(coins) < 0) {
            std::swap(lower, upper);
        }
        const std::int64_t above = others + lower.items - units_.limit;
        if (above > 0) {
            return LinesToMake(above, lower, -1);
        }
        const std::int64_t below = -(others + upper.items + 1);  // the items are rounded down
        return below >= 0 ? LinesToMake(below, upper, 1) : 1;
    }

    /// How many lines it takes an end to rise, or to fall, by so many items.
    std::uint64_t
    LinesToMake(std::int64_t items, const PairEnd& end, std::int64_t direction) const noexcept {
        // On each line the outer unit takes one item less, worth outer value / end.value of others.
        const std::int64_t value = end.value == 0 ? 1 : std::int64_t{end.value};
        const std::int64_t change =
            direction * (end.value == 0 ? -1 : std::int64_t{OuterValue()} - value);
        if (change <= 0) {
            return kToNextRun;
        }
        const std::uint64_t lines =
            (static_cast<std::uint64_t>(items) * static_cast<std::uint64_t>(value) +
             static_cast<std::uint64_t>(change) - 1) /
            static_cast<std::uint64_t>(change);
        return std::max(lines, std::uint64_t{1});
    }

    const SearchUnits& units_;
    LastPair pair_;
    unsigned outer_;
    std::uint64_t reach_;
    Counts first_{};               ///< where the counts of the units before the last two start
    UnwrappedTotals firstTotals_;  ///< their items
    std::uint32_t firstRest_;      ///< of line 0
    std::uint32_t stepDivisor_;    ///< of the outer value and the divisor of the last two
    std::uint32_t stepFactor_;     ///< see LinesToDivisible
    std::uint32_t stride_;         ///< of so many lines one has a rest that the pair can make
};
