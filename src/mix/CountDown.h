#pragma once

#include "SearchUnits.h"
#include "Verdict.h"

/// The loops of a search and their usual form; a search hides what it does differently.
///
/// Every search adds `Verdict Visit(const Counts& combination, std::uint32_t unpaid)`.
struct CountDownRule {
    explicit CountDownRule(const SearchUnits& searched) noexcept : units(searched) {}

    const SearchUnits& units;

    /// Whether a loop that starts at `start` is left out: the counters are signed.
    static bool SkipsLoop(std::uint32_t start) noexcept { return (start >> 31U) != 0; }

    /// The count that a loop starts at, given the most that the unit allows.
    static std::uint32_t StartCount(std::uint32_t most) noexcept { return most; }

    /// Whether the last unit cannot supply what is left for it.
    static bool IsShort(std::uint32_t needed, std::uint32_t held) noexcept { return needed > held; }

    /// Whether a loop ends after this count.
    static bool IsLowest(std::uint32_t count) noexcept { return count == 0; }
};

/// One loop per unit but the last, nested in table order, each from the most that fits downwards;
/// the last unit takes what fits into the rest. This is what defines each search's answer.
///
/// When the last unit is short, the innermost loop ends: a smaller count would only need more of
/// it.
///
/// @param rule         a CountDownRule with Visit.
/// @param combination  where the counts are tried.
/// @param rest         what the units from Level on have to pay.
template <unsigned Level, typename Rule>
Verdict CountLoop(Rule& rule, Counts& combination, std::uint32_t rest) noexcept {
    const SearchUnits& units = rule.units;
    const unsigned last = units.n - 1;
    std::uint32_t count = rule.StartCount(units.MostOf(Level, rest));
    if (rule.SkipsLoop(count)) {
        return Verdict::GoOn;
    }
    for (;; --count) {
        combination[Level] = count;
        const std::uint32_t left = rest - units.values[Level] * count;
        Verdict verdict = Verdict::GoOn;
        if (Level + 1 == last) {
            combination[last] = left / units.values[last];
            if (rule.IsShort(combination[last], units.counts[last])) {
                return Verdict::GoOn;
            }
            verdict = rule.Visit(combination, left - units.values[last] * combination[last]);
        } else if constexpr (Level + 2 < kMaxSearchUnits) {
            verdict = CountLoop<Level + 1>(rule, combination, left);
        }
        if (verdict == Verdict::EndSearch || rule.IsLowest(count)) {
            return verdict;
        }
    }
}

/// Runs the loops over two to five units of values other than 0.
template <typename Rule>
void CountDown(Rule& rule) noexcept {
    Counts combination{};
    CountLoop<0>(rule, combination, rule.units.amount);
}
