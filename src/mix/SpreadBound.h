#pragma once

#include "SearchUnits.h"

/// How even a combination can still become once its first counts are chosen.
///
/// The spread score of n(0) to n(k-1) with S items in all is k * (k * sum of n(i)^2 - S^2). Of the
/// counts still free only three things are used: that they pay the rest, that together with the
/// chosen ones they keep within the limit, and that they are real numbers. The least score under
/// these is one of a parabola in the number of items left to take, so it is exact in integers.
class SpreadBound {
public:
    /// Whether every number below fits into 64 bits.
    static bool Fits(const SearchUnits& units) noexcept {
        std::uint64_t sum = 0;
        for (unsigned unit = 0; unit < units.n; ++unit) {
            sum += units.values[unit];
        }
        return sum * std::max(units.limit, 1U) < kLargestProduct;
    }

    SpreadBound(const SearchUnits& units, std::uint32_t mostItems) noexcept
        : n_(units.n), mostItems_(mostItems) {
        for (unsigned unit = units.n; unit-- > 0;) {
            const std::int64_t value = units.values[unit];
            sums_[unit] = sums_[unit + 1] + value;
            squares_[unit] = squares_[unit + 1] + value * value;
        }
    }

    /// Whether each way to go on from the counts up to `level` scores above `best`.
    ///
    /// @param rest  what the levels after have to pay exactly.
    bool IsAbove(std::uint32_t best,
                 unsigned level,
                 const Counts& combination,
                 std::uint32_t rest) const noexcept {
        const std::int64_t k = n_;
        const std::int64_t chosen = level + 1;
        const std::int64_t free = k - chosen;
        std::int64_t items = 0;
        std::int64_t squaredItems = 0;
        for (unsigned unit = 0; unit <= level; ++unit) {
            const std::int64_t count = combination[unit];
            items += count;
            squaredItems += count * count;
        }
        const std::int64_t sum = sums_[level + 1];
        const std::int64_t square = squares_[level + 1];
        const std::int64_t variance = free * square - sum * sum;
        const std::int64_t left = mostItems_ - items;
        // With `left` more items: what they pay beyond, or short of, the rest when all are equal.
        const std::int64_t excess = free * rest - left * sum;
        const std::int64_t slope =
            k * (left * variance - sum * excess) - mostItems_ * free * variance;
        if (variance > 0 && slope < 0) {
            // Fewer items than the limit allows are only more uneven: take all of them.
            const std::int64_t scale = free * variance;
            const std::int64_t least =
                k * (squaredItems * scale + left * left * variance + excess * excess) -
                mostItems_ * mostItems_ * scale;
            return least / scale > best / k;
        }
        // The limit does not bind: the best number of items lies within it.
        const std::int64_t least = (chosen * squaredItems - items * items) * square +
                                   squaredItems * sum * sum - 2 * items * rest * sum +
                                   chosen * std::int64_t{rest} * rest;
        return least / (chosen * square + sum * sum) > best / (k * k);
    }

private:
    static constexpr std::uint64_t kLargestProduct = std::uint64_t{1} << 26U;

    unsigned n_;
    std::int64_t mostItems_;
    std::array<std::int64_t, kMaxCashUnits> sums_{};  ///< of the values of the levels from here on
    std::array<std::int64_t, kMaxCashUnits> squares_{};  ///< of their squares
};
