#include "CMixAlgorithm.h"
#include "MostEven.h"

namespace {

/// How unequal the numbers of items are: the sum of (k * n(i) - S)^2 over k units with S items in
/// all, which is k * sum of (n(i) - n(j))^2 over all pairs. Everything wraps at 32 bits.
class Spread {
public:
    explicit Spread(const SearchUnits& units) noexcept : units_(units) {}

    std::uint32_t Score(const Counts& combination) const noexcept {
        const unsigned k = units_.n;
        std::uint32_t total = 0;
        for (unsigned unit = 0; unit < k; ++unit) {
            total += combination[unit];
        }
        std::uint32_t score = 0;
        for (unsigned unit = 0; unit < k; ++unit) {
            const std::uint32_t deviation = k * combination[unit] - total;
            score += deviation * deviation;
        }
        return score;
    }

    void Walk(const ExactWalk& walk, MostEven<Spread>& search) const noexcept;

private:
    bool MayWrap() const noexcept;

    const SearchUnits& units_;
};

/// Shows only combinations whose counts lie within a band, and leaves those that are already too
/// uneven. Scores do not wrap here.
struct BandRule : WithinLimitRule<Spread> {
    std::uint32_t width;                              ///< most that two counts may differ
    std::array<std::uint64_t, kMaxCashUnits> sums{};  ///< of the values of the levels from here on

    BandRule(MostEven<Spread>& search, const ExactWalk& exactWalk, std::uint32_t bandWidth) noexcept
        : WithinLimitRule(search, exactWalk), width(bandWidth) {
        for (unsigned unit = most.units.n; unit-- > 0;) {
            sums[unit] = sums[unit + 1] + most.units.values[unit];
        }
    }

    void Narrow(unsigned level,
                const Counts& combination,
                std::uint32_t rest,
                CountRange& range) const noexcept {
        WithinLimitRule::Narrow(level, combination, rest, range);
        for (unsigned before = 0; before < level; ++before) {
            const std::uint32_t count = combination[before];
            NarrowTo(range, count > width ? count - width : 0, std::uint64_t{count} + width);
        }
        // The units after take at most `width` more or fewer than this one, each.
        const std::uint64_t slack = sums[level + 1] * width;
        const std::uint64_t unpayable = slack + walk.MostShortfall();
        NarrowTo(range, rest > unpayable ? (rest - unpayable + sums[level] - 1) / sums[level] : 0,
                 (rest + slack) / sums[level]);
    }

    /// The score is at least what the chosen counts alone give, the others being at their mean.
    bool Enters(unsigned level, const Counts& combination, std::uint32_t) const noexcept {
        if (!most.isFound) {
            return true;
        }
        const std::uint64_t k = most.units.n;
        const std::uint64_t chosen = level + 1;
        std::uint64_t total = 0;
        std::uint64_t squares = 0;
        for (unsigned unit = 0; unit <= level; ++unit) {
            total += combination[unit];
            squares += std::uint64_t{combination[unit]} * combination[unit];
        }
        return k * k * (chosen * squares - total * total) <= chosen * most.best;
    }

    static void NarrowTo(CountRange& range, std::uint64_t low, std::uint64_t high) noexcept {
        range.low = static_cast<std::uint32_t>(std::max(std::uint64_t{range.low}, low));
        range.high = static_cast<std::uint32_t>(std::min(std::uint64_t{range.high}, high));
    }
};

/// Whether the score of a combination within the limit may wrap: it is below k * k * S * S.
bool Spread::MayWrap() const noexcept {
    const std::uint64_t kinds =
        std::find(units_.areCoins.begin(), units_.areCoins.end(), true) != units_.areCoins.end()
            ? 2
            : 1;
    const std::uint64_t most = units_.n * kinds * units_.limit;
    return most * most > 0xFFFFFFFFU;
}

/// Searches in a narrow band first. Two counts that differ by w give a score of at least
/// k * k * w * w / 2: once a wider band could only hold greater scores, the answer is final.
void Spread::Walk(const ExactWalk& walk, MostEven<Spread>& search) const noexcept {
    if (MayWrap()) {
        WithinLimitRule<Spread> rule(search, walk);
        walk.Run<Direction::Downwards>(rule);
        return;
    }
    const std::uint64_t k = units_.n;
    std::uint64_t width = 2;
    for (;;) {
        BandRule rule(search, walk, static_cast<std::uint32_t>(width));
        walk.Run<Direction::Downwards>(rule);
        if (width >= units_.limit) {
            return;
        }
        if (!search.isFound) {
            width = std::min(width * 4, std::uint64_t{units_.limit});
        } else if (k * k * (width + 1) * (width + 1) > 2 * std::uint64_t{search.best}) {
            return;
        } else {
            while (k * k * (width + 1) * (width + 1) <= 2 * std::uint64_t{search.best}) {
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
    return PayMostEvenly<Spread>(request, table, notes);
}
