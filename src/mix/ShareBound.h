#pragma once

#include "Shares.h"

/// How unevenly the units must empty once the first counts are chosen.
///
/// Where all shares are below 2^31, magnitudes are true distances. Then the sum around the cycle is
/// at least that of the chosen shares, however the others stand; and it is the score, unless it
/// comes to 2^32.
class ShareBound {
public:
    ShareBound(const SearchUnits& units, const Shares& shares, std::uint32_t mostShortfall) noexcept
        : n_(units.n), paysAll_(mostShortfall == 0),
          isUsed_(n_ > 3 && shares.Whole() < Shares::kWord), mayReachWord_(shares.MayReachWord()) {
        if (isUsed_ && mayReachWord_) {
            for (unsigned unit = 0; unit < n_; ++unit) {
                const std::uint32_t most = std::min(units.counts[unit], units.limit);
                const std::uint32_t weight = shares.Weight(unit);
                Supply& supply = supplies_[unit];
                supply.worth = std::uint64_t{units.values[unit]} * most;
                supply.rate = (std::uint64_t{weight} << 32U) / units.values[unit];
                supply.share = weight * most;
            }
        }
    }

    /// Whether every combination with the counts chosen up to `level`, and `rest` left to the
    /// others or less by the shortfall, scores above `best`.
    bool IsAbove(std::uint32_t best,
                 const ChosenShares& chosen,
                 unsigned level,
                 std::uint32_t rest) const noexcept {
        return isUsed_ && chosen.AroundCycle(level) > best &&
               (!mayReachWord_ || StaysBelowWord(chosen, level, rest));
    }

private:
    /// What a unit can give within the limit.
    struct Supply {
        std::uint64_t worth;
        std::uint64_t rate;   ///< share for a worth of 2^32
        std::uint32_t share;  ///< of all that
    };

    /// The share that the unit gives when it pays so much, in real numbers of items within the
    /// limit; rounded down by less than 2.
    std::uint32_t ShareFor(std::uint64_t amount, unsigned unit) const noexcept {
        const Supply& supply = supplies_[unit];
        return amount < supply.worth ? static_cast<std::uint32_t>((amount * supply.rate) >> 32U)
                                     : supply.share;
    }

    /// What sums are to stay below: no rounding makes out so much.
    static constexpr std::uint64_t kBelowWord = Shares::kWord - 16;

    /// Whether no sum comes to 2^32, nor a share to 2^31, whatever the units after the level give.
    bool
    StaysBelowWord(const ChosenShares& chosen, unsigned level, std::uint32_t rest) const noexcept {
        if (level + 3 == n_ && paysAll_) {
            return LineStaysBelowWord(chosen, rest);
        }
        std::uint32_t before = chosen.At(level);
        std::uint64_t sum = chosen.Path(level);
        for (unsigned unit = level + 1; unit < n_; ++unit) {
            const std::uint32_t most = ShareFor(rest, unit);
            // Two shares differ by the larger one at most. One of 2^31 counts on both its sides.
            sum += std::max(before, most);
            before = most;
        }
        return sum + std::max(before, chosen.First()) < kBelowWord &&
               (chosen.Bits(level) >> 31U) == 0;
    }

    /// What the last two units pay together lies on a line. Along it the sum is convex, so that it
    /// is largest where the one or the other pays the most that it can.
    bool LineStaysBelowWord(const ChosenShares& chosen, std::uint32_t rest) const noexcept {
        const unsigned one = n_ - 2;
        const unsigned other = n_ - 1;
        const std::uint32_t mostOfOne = ShareFor(rest, one);
        const std::uint32_t mostOfOther = ShareFor(rest, other);
        return ((chosen.Bits(n_ - 3) | mostOfOne | mostOfOther) >> 31U) == 0 &&
               IsBelowWord(chosen, mostOfOne, ShareBeyond(one, rest, other)) &&
               IsBelowWord(chosen, ShareBeyond(other, rest, one), mostOfOther);
    }

    /// The share that a unit gives when another one pays the most that it can.
    std::uint32_t ShareBeyond(unsigned other, std::uint32_t rest, unsigned unit) const noexcept {
        const std::uint64_t worth = supplies_[other].worth;
        return rest > worth ? ShareFor(rest - worth, unit) : 0;
    }

    bool IsBelowWord(const ChosenShares& chosen,
                     std::uint32_t share,
                     std::uint32_t lastShare) const noexcept {
        return chosen.Path(n_ - 3) + Magnitude(share - chosen.At(n_ - 3)) +
                   Magnitude(lastShare - share) + Magnitude(chosen.First() - lastShare) <
               kBelowWord;
    }

    unsigned n_;
    bool paysAll_;
    bool isUsed_;
    bool mayReachWord_;
    std::array<Supply, kMaxSearchUnits> supplies_{};
};
