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
        for (unsigned unit = 0; unit < n_; ++unit) {
            weights_[unit] = 1;
            for (unsigned other = 0; other < n_; ++other) {
                weights_[unit] *= other != unit ? units.counts[other] : 1;
            }
        }
    }

    std::uint32_t Score(const Counts& combination) const noexcept {
        const unsigned pairs = n_ == 2 ? 1 : n_;
        std::uint32_t score = 0;
        for (unsigned unit = 0; unit < pairs; ++unit) {
            const unsigned neighbour = unit + 1 < n_ ? unit + 1 : 0;
            score += Magnitude(weights_[unit] * combination[unit] -
                               weights_[neighbour] * combination[neighbour]);
        }
        return score;
    }

    void Walk(const ExactWalk& walk, MostEven<Imbalance>& search) const noexcept {
        WithinLimitRule<Imbalance> rule(search, walk);
        walk.Run<Direction::Downwards>(rule);
    }

private:
    unsigned n_;
    Counts weights_{};  ///< by unit: the product of the counts of all others
};

}  // namespace

std::int32_t CMixAlgorithm::CalcEqualEmptying(const MixRequest& request,
                                              const LcuTable& table,
                                              LcuNotes& notes) noexcept {
    if (!HasSearchableSize(table)) {
        return Fail(Failure::TooManyUnits);
    }
    return PayMostEvenly<Imbalance>(request, table, notes);
}
