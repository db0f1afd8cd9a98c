#include "CMixAlgorithm.h"
#include "MostEven.h"

namespace {

/// The magnitude of a difference that is read as a signed number.
std::uint32_t Magnitude(std::uint32_t difference) noexcept {
    return (difference >> 31U) != 0 ? 0U - difference : difference;
}

/// How unevenly the units empty: the differences of the shares (items taken of items held) of
/// neighbouring units, the last and the first being neighbours when there are more than two.
///
/// All shares are multiplied by the product of all counts, so that nothing is divided. Everything
/// wraps at 32 bits on purpose: with well-filled cassettes, wrapped numbers are compared.
class Imbalance {
public:
    explicit Imbalance(const SearchUnits& units) noexcept : n_(units.n) {
        std::uint64_t product = 1;
        for (unsigned unit = 0; unit < n_; ++unit) {
            product = std::min(product * units.counts[unit], kLargestTrueProduct + 1);
            weights_[unit] = 1;
            for (unsigned other = 0; other < n_; ++other) {
                weights_[unit] *= other != unit ? units.counts[other] : 1;
            }
        }
        isTrue_ = product <= kLargestTrueProduct;
    }

    std::uint32_t Score(const Counts& combination) const noexcept {
        return n_ == 2 ? Difference(combination, 0, 1) : AroundCycle(combination, n_);
    }

    void Walk(const ExactWalk& walk, MostEven<Imbalance>& search) const noexcept;

    /// Whether every combination with these first counts scores above `best`: however the others
    /// stand, the way from the last chosen share back to the first is at least their difference.
    bool IsAbove(std::uint32_t best, const Counts& combination, unsigned chosen) const noexcept {
        return isTrue_ && AroundCycle(combination, chosen) > best;
    }

private:
    // The score is at most four times the product of all counts; up to here it does not wrap.
    static constexpr std::uint64_t kLargestTrueProduct = 0x3FFFFFFFU;

    std::uint32_t
    Difference(const Counts& combination, unsigned unit, unsigned neighbour) const noexcept {
        return Magnitude(weights_[unit] * combination[unit] -
                         weights_[neighbour] * combination[neighbour]);
    }

    /// The differences of neighbours among the first `units` units, the last one's being the first.
    std::uint32_t AroundCycle(const Counts& combination, unsigned units) const noexcept {
        std::uint32_t sum = Difference(combination, units - 1, 0);
        for (unsigned unit = 1; unit < units; ++unit) {
            sum += Difference(combination, unit - 1, unit);
        }
        return sum;
    }

    unsigned n_;
    bool isTrue_ = false;  ///< whether no score wraps
    Counts weights_{};     ///< by unit: the product of the counts of all others
};

struct ShareRule : WithinLimitRule<Imbalance> {
    using WithinLimitRule::WithinLimitRule;

    bool Enters(unsigned level, const Counts& combination, std::uint32_t) const noexcept {
        return !most.isFound || !most.evenness.IsAbove(most.best, combination, level + 1);
    }
};

void Imbalance::Walk(const ExactWalk& walk, MostEven<Imbalance>& search) const noexcept {
    ShareRule rule(search, walk);
    walk.Run<Direction::Downwards>(rule);
}

}  // namespace

std::int32_t CMixAlgorithm::CalcEqualEmptying(const MixRequest& request,
                                              const LcuTable& table,
                                              LcuNotes& notes) noexcept {
    if (!HasSearchableSize(table)) {
        return Fail(Failure::TooManyUnits);
    }
    return PayMostEvenly<Imbalance>(request, table, notes);
}
