#pragma once

#include "ExactWalk.h"

/// Narrows a walk by the dispense limit, without losing a combination within it.
///
/// Of the items that the limit leaves, each pays at most the largest value of its kind among the
/// units that follow. Where that cannot make up the rest, every combination is over the limit.
class LimitBound {
public:
    LimitBound(const SearchUnits& units, std::uint32_t mostShortfall) noexcept
        : units_(units), mostShortfall_(mostShortfall) {
        for (unsigned unit = units.n; unit-- > 1;) {
            largestNotes_[unit - 1] = largestNotes_[unit];
            largestCoins_[unit - 1] = largestCoins_[unit];
            std::uint32_t& largest =
                (units.areCoins[unit] ? largestCoins_ : largestNotes_)[unit - 1];
            largest = std::max(largest, units.values[unit]);
        }
    }

    void Narrow(unsigned level,
                const Counts& combination,
                std::uint32_t rest,
                CountRange& range) const noexcept {
        const ItemTotals taken = units_.TotalsOf(combination, level);
        const std::uint64_t notes = units_.limit - taken.notes;
        const std::uint64_t coins = units_.limit - taken.coins;
        const bool areCoins = units_.areCoins[level];
        range.high = std::min(range.high, static_cast<std::uint32_t>(areCoins ? coins : notes));
        // What everything that the limit leaves can pay when this unit takes nothing.
        const std::uint64_t reach =
            notes * largestNotes_[level] + coins * largestCoins_[level] + mostShortfall_;
        // Each item of this unit pays its value and takes the place of one that would pay `other`.
        const std::uint32_t value = units_.values[level];
        const std::uint32_t other = (areCoins ? largestCoins_ : largestNotes_)[level];
        if (reach < rest) {
            const auto missing = static_cast<std::uint32_t>(rest - reach);
            if (value <= other) {
                range = {1, 0};
            } else {
                range.low = std::max(range.low, (missing - 1) / (value - other) + 1);
            }
        } else if (value < other) {
            const std::uint64_t most = (reach - rest) / (other - value);
            range.high = static_cast<std::uint32_t>(std::min(std::uint64_t{range.high}, most));
        }
    }

private:
    const SearchUnits& units_;
    std::uint32_t mostShortfall_;
    Counts largestNotes_{};  ///< by level: the largest value among the units after it
    Counts largestCoins_{};
};
