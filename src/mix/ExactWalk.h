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

    /// Whether `Verdict VisitLine(const Counts& head, std::uint32_t counts)` takes the place of
    /// Visit: it is shown the first of the combinations that only exchange items of the last two
    /// units, and how many they are.
    static constexpr bool TakesLines() noexcept { return false; }
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

    /// Whether the values divide the amount and the counts reach it: otherwise there is no
    /// combination at all, and what a search sets up for a walk can be left out.
    bool MayMakeAmount() const noexcept {
        return amount_ % divisors_[0] == 0 && amount_ <= capacities_[0] && LastUnitFits();
    }

    std::uint32_t Amount() const noexcept { return amount_; }

    /// Changes the amount; the units stay.
    void PayInstead(std::uint32_t amount) noexcept { amount_ = amount; }

    /// The greatest common divisor of all values.
    std::uint32_t Divisor() const noexcept { return divisors_[0]; }

    /// Whether a combination counts: in a walk with shortfall only one that falls short.
    bool Regards(const Counts& combination) const noexcept {
        return !passesOverWhole_ || combination[shortfall_] != 0;
    }

    /// What a combination that counts leaves to the additional unit.
    std::uint32_t LeastShortfall() const noexcept { return passesOverWhole_ ? Divisor() : 0; }
    std::uint32_t MostShortfall() const noexcept {
        return values_[shortfall_] * counts_[shortfall_];
    }

    /// What the last two units exchange from one combination to the next: so many items of the last
    /// but one for so many of the last.
    std::uint32_t ItemsTaken() const noexcept { return strides_[last_ - 1]; }
    std::uint32_t ItemsGiven() const noexcept { return values_[last_ - 1] / divisors_[last_ - 1]; }

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

    /// Whether the last unit holds the few items without which the others cannot pay the rest. As a
    /// rule it holds far more: the divisor of the others is no more than any of their values.
    bool LastUnitFits() const noexcept {
        return (counts_[last_] + std::uint64_t{1}) * divisors_[0] >= values_[last_ - 1] ||
               HoldsLeastOfLast();
    }
    bool HoldsLeastOfLast() const noexcept;
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

    template <Direction kDirection, typename Rule>
    class Walker;

    std::uint32_t amount_;
    unsigned last_;                 ///< the level whose count follows from the others
    unsigned shortfall_;            ///< entry of the additional unit
    bool passesOverWhole_ = false;  ///< whether only combinations that fall short count
    Counts values_;
    Counts counts_;
    Counts capacities_{};  ///< what the levels from here on can pay, at most 2^32 - 1
    Counts divisors_{};    ///< of the values of the levels from here on
    Counts strides_{};     ///< of so many counts one leaves a rest that the levels after divide
    Counts factors_{};     ///< which one: see KeepDivisible
};

/// One walk under way: by level, the rest that it and the levels after have to pay, the count that
/// it takes next, and how many counts it still has.
template <Direction kDirection, typename Rule>
class ExactWalk::Walker {
public:
    Walker(const ExactWalk& units, Rule& searchRule, Counts& counts) noexcept
        : walk_(units), rule_(searchRule), combination_(counts) {
        rests_[0] = walk_.amount_;
    }

    void Run() noexcept {
        do {
            if (level_ + 1 < walk_.last_) {
                Open();
            } else if (RunLastPair() == Verdict::EndSearch) {
                return;
            }
        } while (TakeNext());
    }

private:
    /// Starts with the counts of the level that the walk has come to.
    void Open() noexcept {
        const CountRange range = walk_.NarrowedRange(rule_, level_, combination_, rests_[level_]);
        nexts_[level_] = FirstOf(range);
        turns_[level_] = CountsIn(range);
        ++level_;
    }

    /// Goes back to the deepest level that has a count left, and on from that count.
    bool TakeNext() noexcept {
        do {
            while (level_ > 0 && turns_[level_ - 1] == 0) {
                --level_;
            }
            if (level_ == 0) {
                return false;
            }
            const unsigned taken = level_ - 1;
            --turns_[taken];
            combination_[taken] = nexts_[taken];
            nexts_[taken] += Step(walk_.strides_[taken]);
            rests_[level_] = rests_[taken] - walk_.values_[taken] * combination_[taken];
        } while (!rule_.Enters(level_ - 1, combination_, rests_[level_]));
        return true;
    }

    /// The last two units: each step exchanges items of the one for items of the other.
    Verdict RunLastPair() noexcept {
        const CountRange range = walk_.NarrowedRange(rule_, level_, combination_, rests_[level_]);
        const std::uint32_t counts = CountsIn(range);
        if (counts == 0) {
            return Verdict::GoOn;
        }
        std::uint32_t& count = combination_[level_];
        std::uint32_t& lastCount = combination_[walk_.last_];
        count = FirstOf(range);
        lastCount = (rests_[level_] - walk_.values_[level_] * count) / walk_.values_[walk_.last_];
        if constexpr (Rule::TakesLines()) {
            return rule_.VisitLine(combination_, counts);
        } else {
            return VisitEach(counts);
        }
    }

    Verdict VisitEach(std::uint32_t counts) noexcept {
        if (rule_.Visit(combination_) == Verdict::EndSearch) {
            return Verdict::EndSearch;
        }
        const std::uint32_t taken = Step(walk_.ItemsTaken());
        const std::uint32_t given = counts > 1 ? Step(walk_.ItemsGiven()) : 0;
        while (--counts != 0) {
            combination_[level_] += taken;
            combination_[walk_.last_] -= given;
            if (rule_.Visit(combination_) == Verdict::EndSearch) {
                return Verdict::EndSearch;
            }
        }
        return Verdict::GoOn;
    }

    std::uint32_t CountsIn(const CountRange& range) const noexcept {
        return range.low <= range.high ? (range.high - range.low) / walk_.strides_[level_] + 1 : 0;
    }

    static std::uint32_t FirstOf(const CountRange& range) noexcept {
        return kDirection == Direction::Downwards ? range.high : range.low;
    }

    static std::uint32_t Step(std::uint32_t items) noexcept {
        return kDirection == Direction::Downwards ? 0U - items : items;
    }

    const ExactWalk& walk_;
    Rule& rule_;
    Counts& combination_;  // apart from the rest, which the compiler then keeps in registers
    unsigned level_ = 0;
    Counts rests_{};
    Counts nexts_{};
    Counts turns_{};
};

template <Direction kDirection, typename Rule>
void ExactWalk::Run(Rule& rule) const noexcept {
    if (MayMakeAmount()) {
        Counts combination{};
        Walker<kDirection, Rule>(*this, rule, combination).Run();
    }
}
