#pragma once

#include "ExactWalk.h"

/// Narrows a walk to combinations whose counts differ by no more than the width of the band.
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
        const std::uint64_t slack = sums_[level + 1] * width_;
        const std::uint64_t unpayable = slack + mostShortfall_;
        NarrowTo(range, rest > unpayable ? (rest - unpayable - 1) / sums_[level] + 1 : 0,
                 (rest + slack) / sums_[level]);
    }

private:
    static void NarrowTo(CountRange& range, std::uint64_t low, std::uint64_t high) noexcept {
        range.low = static_cast<std::uint32_t>(std::max<std::uint64_t>(range.low, low));
        range.high = static_cast<std::uint32_t>(std::min<std::uint64_t>(range.high, high));
    }

    std::uint32_t mostShortfall_;
    std::uint32_t width_;
    std::array<std::uint64_t, kMaxCashUnits> sums_{};  ///< of the values of the levels from here on
};
