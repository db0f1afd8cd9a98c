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
    explicit Imbalance(const SearchUnits& units) noexcept : units_(units) {
        std::uint64_t product = 1;
        for (unsigned unit = 0; unit < units.n; ++unit) {
            product = std::min(product * units.counts[unit], kWord);
            weights_[unit] = 1;
            for (unsigned other = 0; other < units.n; ++other) {
                weights_[unit] *= other != unit ? units.counts[other] : 1;
            }
        }
        areTrue_ = product < kWord / 2;
    }

    std::uint32_t Score(const Counts& combination) const noexcept {
        return static_cast<std::uint32_t>(
            units_.n == 2 ? Magnitude(Share(combination, 0) - Share(combination, 1))
                          : AroundCycle(combination, units_.n));
    }

    void Walk(const ExactWalk& walk, MostEven<Imbalance>& search) const noexcept;

    /// Whether every combination with these first counts, and `rest` left to the others, scores
    /// above `best`.
    ///
    /// However the others stand, from the last chosen share back to the first it is at least their
    /// difference. A score is the sum less the multiples of 2^32 in it, so the largest sum must not
    /// come to the next multiple.
    bool IsAbove(std::uint32_t best,
                 const Counts& combination,
                 unsigned chosen,
                 std::uint32_t rest) const noexcept {
        if (!areTrue_) {
            return false;
        }
        const std::uint64_t least = AroundCycle(combination, chosen);
        return least > best &&
               (least - best - 1) / kWord == (least + Detour(combination, chosen, rest)) / kWord;
    }

private:
    static constexpr std::uint64_t kWord = std::uint64_t{1} << 32U;

    std::uint32_t Share(const Counts& combination, unsigned unit) const noexcept {
        return weights_[unit] * combination[unit];
    }

    /// The differences of neighbours among the first `units` units, the last one's being the first.
    std::uint64_t AroundCycle(const Counts& combination, unsigned units) const noexcept {
        const std::uint32_t first = Share(combination, 0);
        std::uint32_t before = first;
        std::uint64_t sum = 0;
        for (unsigned unit = 1; unit < units; ++unit) {
            const std::uint32_t share = Share(combination, unit);
            sum += Magnitude(share - before);
            before = share;
        }
        return sum + Magnitude(before - first);
    }

    /// No less than what the others can add to the cycle of the first `chosen` units: two shares
    /// differ by the larger one at most.
    std::uint64_t
    Detour(const Counts& combination, unsigned chosen, std::uint32_t rest) const noexcept {
        const std::uint32_t first = Share(combination, 0);
        const std::uint32_t last = Share(combination, chosen - 1);
        std::uint64_t sum = 0;
        std::uint32_t before = last;
        for (unsigned unit = chosen; unit < units_.n; ++unit) {
            const std::uint32_t most = weights_[unit] * units_.MostOf(unit, rest);
            sum += std::max(before, most);
            before = most;
        }
        return sum + std::max(before, first) - Magnitude(last - first);
    }

    const SearchUnits& units_;
    bool areTrue_ = false;  ///< whether no share wraps, nor a difference read as a signed number
    Counts weights_{};      ///< by unit: the product of the counts of all others
};

struct ShareRule : WithinLimitRule<Imbalance> {
    using WithinLimitRule::WithinLimitRule;

    bool Enters(unsigned level, const Counts& combination, std::uint32_t rest) const noexcept {
        return !most.isFound || !most.evenness.IsAbove(most.best, combination, level + 1, rest);
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
