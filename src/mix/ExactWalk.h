#pragma once

#include "SearchUnits.h"
#include "Verdict.h"

/// Counts that a unit may take, from low to high; none when low is above high.
struct CountRange {
    std::uint32_t low;
    std::uint32_t high;
};

/// By the count of the first unit, then of the second, and so on: from the most, or from the least.
enum class Direction { Downwards, Upwards };

/// Leaves a walk whole; a search hides what it narrows. Every search adds
/// `Verdict Visit(const Counts& combination)`.
struct WalkRule {
    /// Narrows the counts of `level`, given those of the levels before and the rest to be paid.
    static void Narrow(unsigned, const Counts&, std::uint32_t, CountRange&) noexcept {}

    /// Whether to go on below `level`, whose count stands now; `rest` is left to the levels after.
    static bool Enters(unsigned, const Counts&, std::uint32_t) noexcept { return true; }
};

/// Walks just the combinations of two and more units that make an amount, in the order in which the
/// plain loops of CountDown.h meet them, or in the reverse order.
///
/// Those loops meet every such combination that the units hold: they end early only where the last
/// unit would be short, and smaller counts before it would make it shorter. So nothing is lost by
/// stepping over counts that leave a rest above what the units after can pay, or one that the
/// greatest common divisor of their values does not divide: no combination continues there.
///
/// Values are not 0; the amount and the counts are below 2^31.
class ExactWalk {
public:
    /// For the combinations that make the whole amount.
    explicit ExactWalk(const SearchUnits& units) noexcept
        : ExactWalk(units, units.amount, units.n) {}

    /// For the combinations that the plain loops meet and that may fall short: no further item of
    /// the last unit fits into what they leave. What they leave is paid here by one more unit,
    /// worth the divisor of all values; its count is entry n of a combination.
    static ExactWalk WithShortfall(const SearchUnits& units) noexcept;

    /// Whether a combination counts: in a walk with shortfall only one that falls short.
    bool Regards(const Counts& combination) const noexcept {
        return !passesOverWhole_ || combination[shortfall_] != 0;
    }

    /// The most that a combination leaves to the additional unit.
    std::uint32_t MostShortfall() const noexcept {
        return values_[shortfall_] * counts_[shortfall_];
    }

    /// Shows the combinations to the rule until it has seen enough.
    template <Direction kDirection, typename Rule>
    void Run(Rule& rule) const noexcept;

private:
    ExactWalk(const SearchUnits& units, std::uint32_t amount, unsigned levels) noexcept
        : amount_(amount), last_(levels - 1), shortfall_(units.n), values_(units.values),
          counts_(units.counts) {
        Prepare();
    }

    void Prepare() noexcept;
    CountRange RangeAt(unsigned level, std::uint32_t rest) const noexcept;
    void KeepDivisible(unsigned level, std::uint32_t rest, CountRange& range) const noexcept;

    template <typename Rule>
    CountRange NarrowedRange(const Rule& rule,
                             unsigned level,
                             const Counts& combination,
                             std::uint32_t rest) const noexcept {
        CountRange range = RangeAt(level, rest);
        rule.Narrow(level, combination, rest, range);
        KeepDivisible(level, rest, range);
        return range;
    }

    /// How many counts a level has.
    std::uint32_t Steps(unsigned level, const CountRange& range) const noexcept {
        return range.low <= range.high ? (range.high - range.low) / strides_[level] + 1 : 0;
    }

    template <Direction kDirection>
    static std::uint32_t Step(std::uint32_t items) noexcept {
        return kDirection == Direction::Downwards ? 0U - items : items;
    }

    template <Direction kDirection, typename Rule>
    Verdict RunLastPair(Rule& rule, Counts& combination, std::uint32_t rest) const noexcept;

    std::uint32_t amount_;
    unsigned last_;       ///< the level whose count follows from the others
    unsigned shortfall_;  ///< entry of the additional unit
    bool passesOverWhole_ =
        false;  ///< whether combinations that leave nothing are to be passed over
    Counts values_;
    Counts counts_;
    Counts capacities_{};  ///< what the levels from here on can pay, at most 2^32 - 1
    Counts divisors_{};    ///< of the values of the levels from here on
    Counts strides_{};     ///< of so many counts one leaves a rest that the levels after divide
    Counts factors_{};     ///< which one: see KeepDivisible
};

template <Direction kDirection, typename Rule>
void ExactWalk::Run(Rule& rule) const noexcept {
    if (amount_ % divisors_[0] != 0 || amount_ > capacities_[0]) {
        return;
    }
    Counts combination{};
    Counts rests{};  // by level: what it and the levels after have to pay,
    Counts nexts{};  // the count that it takes next,
    Counts turns{};  // and how many counts it still has
    std::uint32_t rest = amount_;
    for (unsigned level = 0;;) {
        if (level + 1 == last_) {
            if (RunLastPair<kDirection>(rule, combination, rest) == Verdict::EndSearch) {
                return;
            }
        } else {
            const CountRange range = NarrowedRange(rule, level, combination, rest);
            rests[level] = rest;
            nexts[level] = kDirection == Direction::Downwards ? range.high : range.low;
            turns[level] = Steps(level, range);
            ++level;
        }
        do {
            while (level > 0 && turns[level - 1] == 0) {
                --level;
            }
            if (level == 0) {
                return;
            }
            const unsigned before = level - 1;
            --turns[before];
            combination[before] = nexts[before];
            nexts[before] += Step<kDirection>(strides_[before]);
            rest = rests[before] - values_[before] * combination[before];
        } while (!rule.Enters(level - 1, combination, rest));
    }
}

/// The last level that is walked: each step exchanges items of its unit for items of the last one.
template <Direction kDirection, typename Rule>
Verdict ExactWalk::RunLastPair(Rule& rule, Counts& combination, std::uint32_t rest) const noexcept {
    const unsigned level = last_ - 1;
    const CountRange range = NarrowedRange(rule, level, combination, rest);
    const std::uint32_t first = kDirection == Direction::Downwards ? range.high : range.low;
    const std::uint32_t exchanged = values_[level] / divisors_[level];
    combination[level] = first;
    combination[last_] = (rest - values_[level] * first) / values_[last_];
    for (std::uint32_t turns = Steps(level, range); turns != 0; --turns) {
        if (rule.Visit(combination) == Verdict::EndSearch) {
            return Verdict::EndSearch;
        }
        combination[level] += Step<kDirection>(strides_[level]);
        combination[last_] -= Step<kDirection>(exchanged);
    }
    return Verdict::GoOn;
}
