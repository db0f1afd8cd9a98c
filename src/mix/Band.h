#pragma once

#include "ExactWalk.h"

/// Narrows a walk to combinations whose counts differ by no more than the width of the band.
///
/// The band is for units that UnevennessBound fits: then the largest width times all values stays
/// below 2^29, and the rest below 2^31, so that no sum here wraps.
class Band {
public:
    Band(const SearchUnits& units, std::uint32_t mostShortfall, std::uint32_t bandWidth) noexcept
        : mostShortfall_(mostShortfall), width_(bandWidth) {
        for (unsigned unit = units.n; unit-- > 0;) {
            sums_[unit] = sums_[unit + 1] + units.values[unit];
        }
    }

    void Narrow(unsigned level,
                const Counts& combination,
                std::uint32_t rest,
                CountRange& range) const noexcept {
        for (unsigned before = 0; before < level; ++before) {
            const std::uint32_t count = combination[before];
            NarrowTo(range, count > width_ ? count - width_ : 0, count + width_);
        }
        // The units after take at most `width_` items more or fewer than this one, each.
        const std::uint32_t slack = sums_[level + 1] * width_;
        const std::uint32_t unpayable = slack + mostShortfall_;
        NarrowTo(range, rest > unpayable ? (rest - unpayable - 1) / sums_[level] + 1 : 0,
                 (rest + slack) / sums_[level]);
    }

private:
    static void NarrowTo(CountRange& range, std::uint32_t low, std::uint32_t high) noexcept {
        range.low = std::max(range.low, low);
        range.high = std::min(range.high, high);
    }

    std::uint32_t mostShortfall_;
    std::uint32_t width_;
    Counts sums_{};  ///< of the values of the levels from here on
};
