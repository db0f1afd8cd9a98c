#pragma once

#include "SearchUnits.h"

/// How even a combination can still become once its first counts are chosen. For searches whose
/// scores do not wrap.
///
/// The score of n(0) to n(k-1) with S items in all is k * (k * sum of n(i)^2 - S^2). Of the
/// counts still free only three things are used: that they pay the rest, that together with the
/// chosen ones they keep within the limit, and that they are real numbers. The least score under
/// these is one of a parabola in the number of items left to take, so it is exact in integers.
class UnevennessBound {
public:
    /// Whether every number below fits into 64 bits.
    static bool Fits(const SearchUnits& units) noexcept {
        std::uint64_t sum = 0;
        for (unsigned unit = 0; unit < units.n; ++unit) {
            sum += units.values[unit];
        }
        return sum * std::max(units.limit, 1U) < kLargestProduct;
    }

    UnevennessBound(const SearchUnits& units,
                    std::uint32_t mostItems,
                    std::uint32_t mostShortfall) noexcept
        : n_(units.n), mostItems_(mostItems), mostShortfall_(mostShortfall) {
        std::int64_t sum = 0;
        std::int64_t square = 0;
        for (unsigned level = units.n - 1; level-- > 0;) {
            const std::int64_t value = units.values[level + 1];
            sum += value;
            square += value * value;
            const std::int64_t chosen = level + 1;
            const std::int64_t free = units.n - chosen;
            const std::int64_t variance = free * square - sum * sum;
            after_[level] = {sum,
                             square,
                             variance,
                             sum * sum,
                             mostItems_ * variance,
                             free * variance,
                             chosen * square + sum * sum};
        }
        AimAt(0);
    }

    /// Sets the score that IsAbove compares with. The divisions are done here, since most calls
    /// compare with the same score and the device has no instruction for them.
    void AimAt(std::uint32_t score) noexcept {
        atLimit_ = score / n_ + 1;
        withinLimit_ = score / (n_ * n_) + 1;
    }

    /// Whether each way to go on from the counts up to `level` scores above what is aimed at.
    ///
    /// @param rest  what the levels after have to pay, or less by the shortfall allowed.
    bool IsAbove(unsigned level, const Counts& combination, std::uint32_t rest) const noexcept {
        const Free& after = after_[level];
        const std::int64_t k = n_;
        const std::int64_t chosen = level + 1;
        // Where no score wraps, the squares of all items fit into 32 bits.
        std::uint32_t taken = 0;
        std::uint32_t squares = 0;
        for (unsigned unit = 0; unit <= level; ++unit) {
            taken += combination[unit];
            squares += combination[unit] * combination[unit];
        }
        const std::int64_t items = taken;
        const std::int64_t squaredItems = squares;
        const std::int64_t left = mostItems_ - items;
        const std::int64_t free = k - chosen;
        // What may stay unpaid makes the least score only lower: take the payment, of those
        // allowed, that is nearest to what the most even counts would pay.
        std::int64_t paid = rest;
        const bool mayPayLess = mostShortfall_ != 0 && (chosen * paid > items * after.sum ||
                                                        free * paid > left * after.sum);
        if (mayPayLess) {
            paid = std::max(std::int64_t{0}, paid - mostShortfall_);
            if (chosen * paid < items * after.sum && free * paid < left * after.sum) {
                return false;
            }
        }
        const std::int64_t demand = after.sum * paid;
        if (after.variance > 0 && k * (left * after.square - demand) < after.mostVariance) {
            // Fewer items than the limit allows are only more uneven: take all of them. They would
            // pay `excess` beyond, or short of, the rest if all counts were equal.
            const std::int64_t excess = free * paid - left * after.sum;
            const std::int64_t least =
                k * (squaredItems * after.scale + left * left * after.variance + excess * excess) -
                mostItems_ * mostItems_ * after.scale;
            return least >= atLimit_ * after.scale;
        }
        // The limit does not bind: the best number of items lies within it.
        const std::int64_t least = (chosen * squaredItems - items * items) * after.square +
                                   squaredItems * after.sumSquared - 2 * items * demand +
                                   chosen * paid * paid;
        return least >= withinLimit_ * after.divisor;
    }

private:
    static constexpr std::uint64_t kLargestProduct = std::uint64_t{1} << 26U;

    /// The units whose counts are still free after a level, and products of their numbers.
    struct Free {
        std::int64_t sum;       ///< of their values
        std::int64_t square;    ///< of the squares of their values
        std::int64_t variance;  ///< how far apart the values are: 0 when all are equal
        std::int64_t sumSquared;
        std::int64_t mostVariance;  ///< variance times the most items
        std::int64_t scale;         ///< of the least score when the limit binds, less its factor k
        std::int64_t divisor;       ///< of the least score when it does not, less k * k
    };

    unsigned n_;
    std::int64_t mostItems_;
    std::uint32_t mostShortfall_;
    std::int64_t atLimit_{};      ///< least score to be above, by the first formula
    std::int64_t withinLimit_{};  ///< and by the second
    std::array<Free, kMaxSearchUnits> after_{};
};
