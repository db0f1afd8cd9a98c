#pragma once

#include "SearchUnits.h"

class ExactWalk;
template <typename Evenness>
class MostEven;

/// The magnitude of a difference that is read as a signed number.
inline std::uint32_t Magnitude(std::uint32_t difference) noexcept {
    return (difference >> 31U) != 0 ? 0U - difference : difference;
}

/// How unevenly the units empty: the differences of the shares (items taken of items held) of
/// neighbouring units, the last and the first being neighbours when there are more than two.
///
/// All shares are multiplied by the product of all counts, so that nothing is divided. Everything
/// wraps at 32 bits on purpose: with well-filled cassettes, wrapped numbers are compared.
class Shares {
public:
    static constexpr std::uint64_t kWord = std::uint64_t{1} << 32U;

    explicit Shares(const SearchUnits& units) noexcept : n_(units.n) {
        for (unsigned unit = 0; unit < n_; ++unit) {
            whole_ = std::min(whole_ * units.counts[unit], kWord);
            weights_[unit] = 1;
            for (unsigned other = 0; other < n_; ++other) {
                weights_[unit] *= other != unit ? units.counts[other] : 1;
            }
        }
    }

    std::uint32_t Score(const Counts& combination) const noexcept {
        const std::uint32_t first = weights_[0] * combination[0];
        std::uint32_t before = first;
        std::uint32_t sum = 0;
        for (unsigned unit = 1; unit < n_; ++unit) {
            const std::uint32_t share = weights_[unit] * combination[unit];
            sum += Magnitude(share - before);
            before = share;
        }
        return n_ == 2 ? sum : sum + Magnitude(first - before);
    }

    void Walk(const ExactWalk& walk, MostEven<Shares>& search) const noexcept;

    /// The share of one item.
    std::uint32_t Weight(unsigned unit) const noexcept { return weights_[unit]; }

    /// The share of a whole unit, the product of all counts; 2^32 where it is more.
    std::uint64_t Whole() const noexcept { return whole_; }

    /// Whether differences around the cycle can add up to 2^32 though no share wraps: of four and
    /// five units at most four of them go over a whole unit, of three at most two.
    bool MayReachWord() const noexcept { return n_ > 3 && whole_ >= kWord / 4; }

private:
    unsigned n_;
    std::uint64_t whole_ = 1;
    Counts weights_{};  ///< by unit: the product of the counts of all others
};

/// The shares of the units up to a level, kept while a walk goes on. A level is chosen after those
/// before it.
class ChosenShares {
public:
    explicit ChosenShares(const Shares& shares) noexcept : shares_(shares) {}

    void Choose(unsigned level, std::uint32_t count) noexcept {
        const std::uint32_t share = shares_.Weight(level) * count;
        levels_[level] = {share, share, 0};
        if (level > 0) {
            const Level& before = levels_[level - 1];
            levels_[level].bits |= before.bits;
            levels_[level].path = before.path + Magnitude(share - before.share);
        }
    }

    std::uint32_t First() const noexcept { return levels_[0].share; }
    std::uint32_t At(unsigned level) const noexcept { return levels_[level].share; }

    /// All bits that are set in a share up to the level.
    std::uint32_t Bits(unsigned level) const noexcept { return levels_[level].bits; }

    /// The differences of neighbours up to the level.
    std::uint64_t Path(unsigned level) const noexcept { return levels_[level].path; }

    /// The same, and that of the level and the first unit.
    std::uint64_t AroundCycle(unsigned level) const noexcept {
        return Path(level) + Magnitude(At(level) - First());
    }

private:
    struct Level {
        std::uint32_t share;
        std::uint32_t bits;
        std::uint64_t path;
    };

    const Shares& shares_;
    std::array<Level, kMaxSearchUnits> levels_{};
};
