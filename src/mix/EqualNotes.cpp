#include "Band.h"
#include "CMixAlgorithm.h"
#include "MostEven.h"
#include "UnevennessBound.h"

namespace {

/// How unequal the numbers of items are: the sum of (k * n(i) - S)^2 over k units with S items in
/// all, which is k * (k * sum of n(i)^2 - S^2). Everything wraps at 32 bits.
class Unevenness {
public:
    explicit Unevenness(const SearchUnits& units) noexcept
        : units_(units), mostItems_(units.HaveCoins() ? 2 * units.limit : units.limit) {}

    std::uint32_t Score(const Counts& combination) const noexcept {
        const unsigned k = units_.n;
        std::uint32_t total = 0;
        std::uint32_t squares = 0;
        for (unsigned unit = 0; unit < k; ++unit) {
            const std::uint32_t count = combination[unit];
            total += count;
            squares += count * count;
        }
        return k * (k * squares - total * total);
    }

    void Walk(const ExactWalk& walk, MostEven<Unevenness>& search) const noexcept;

    /// Items that the limit allows, of both kinds together.
    std::uint32_t MostItems() const noexcept { return mostItems_; }

    /// Whether combinations whose counts differ by more than `width` all score above `score`: two
    /// counts that differ by w give at least k * k * w * w / 2.
    bool LeavesOnlyWorse(std::uint64_t width, std::uint64_t score) const noexcept {
        const std::uint64_t scaled = units_.n * (width + 1);
        return scaled * scaled > 2 * score;
    }

private:
    /// Whether no score of a combination within the limit wraps: it is below k * k * S * S.
    bool IsTrue() const noexcept {
        const std::uint64_t most = std::uint64_t{units_.n} * mostItems_;
        return most * most <= 0xFFFFFFFFU;
    }

    const SearchUnits& units_;
    std::uint32_t mostItems_;
};

/// Shows only combinations within a band, and of those only what may score as low as the best so
/// far.
struct BandRule : WithinLimitRule<Unevenness> {
    Band band;
    UnevennessBound unevennessBound;
    std::uint32_t aimedAt = 0;

    BandRule(MostEven<Unevenness>& search, const ExactWalk& exactWalk, std::uint32_t width) noexcept
        : WithinLimitRule(search, exactWalk), band(search.units, exactWalk.MostShortfall(), width),
          unevennessBound(search.units, search.evenness.MostItems(), exactWalk.MostShortfall()) {}

    void Narrow(unsigned level,
                const Counts& combination,
                std::uint32_t rest,
                CountRange& range) const noexcept {
        WithinLimitRule::Narrow(level, combination, rest, range);
        band.Narrow(level, combination, rest, range);
    }

    bool Enters(unsigned level, const Counts& combination, std::uint32_t rest) noexcept {
        if (!most.isFound) {
            return true;
        }
        if (aimedAt != most.best) {
            aimedAt = most.best;
            unevennessBound.AimAt(aimedAt);
        }
        return !unevennessBound.IsAbove(level, combination, rest);
    }
};

/// Searches in a narrow band first and widens it until what lies outside could only score worse.
void Unevenness::Walk(const ExactWalk& walk, MostEven<Unevenness>& search) const noexcept {
    if (!IsTrue() || !UnevennessBound::Fits(units_)) {
        WithinLimitRule<Unevenness> rule(search, walk);
        walk.Run<Direction::Downwards>(rule);
        return;
    }
    for (std::uint32_t width = 2;;) {
        BandRule rule(search, walk, width);
        walk.Run<Direction::Downwards>(rule);
        if (width >= units_.limit || (search.isFound && LeavesOnlyWorse(width, search.best))) {
            return;
        }
        if (!search.isFound) {
            width *= 4;
        } else {
            while (!LeavesOnlyWorse(width, search.best)) {
                ++width;
            }
        }
    }
}

}  // namespace

std::int32_t CMixAlgorithm::CalcEqualNotes(const MixRequest& request,
                                           const LcuTable& table,
                                           LcuNotes& notes) noexcept {
    if (table.aLCUs[0].ulValues == 0) {
        return kNotDispensable;  // nothing recorded
    }
    if (!HasSearchableSize(table)) {
        return Fail(Failure::TooManyUnits);
    }
    return PayMostEvenly<Unevenness>(request, table, notes);
}
