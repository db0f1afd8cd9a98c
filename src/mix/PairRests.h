#pragma once

#include "RestsBackwards.h"
#include "SearchUnits.h"

/// The rests that the last two units pay in first-fit emptying, the count of the last but one below
/// 0 too: for each count of the one unit a series over those of the other.
///
/// Counts of the last unit that leave the same residue to the other pay the same series, the larger
/// one more of it. So there are few series the one way or the other: fewer than 2^17, since all
/// that the last unit holds is worth less than 2^32.
class PairRests {
public:
    /// @param units    two or more, of values other than 0.
    /// @param divisor  of the last two values.
    PairRests(const SearchUnits& units, std::uint32_t divisor) noexcept
        : innerValue_(units.values[units.n - 2]), lastValue_(units.values[units.n - 1]),
          innerCount_(units.counts[units.n - 2]), lastCount_(units.counts[units.n - 1]),
          mostInner_(std::min(innerCount_, 0xFFFFFFFFU / innerValue_)) {
        const std::uint64_t residues =
            std::min(lastCount_ + std::uint64_t{1}, std::uint64_t{innerValue_ / divisor});
        const std::uint64_t innerCounts =
            mostInner_ + std::uint64_t{lastCount_} * lastValue_ / innerValue_ + 1;
        isByLast_ = residues <= innerCounts;
        number_ = std::min(residues, innerCounts);
    }

    /// How many series there are.
    std::uint64_t Number() const noexcept { return number_; }

    /// Of the rests in each series.
    std::uint32_t Distance() const noexcept { return isByLast_ ? innerValue_ : lastValue_; }

    RestSeries Series(std::uint64_t index) const noexcept {
        if (isByLast_) {
            const std::uint64_t money = (lastCount_ - index) * lastValue_;
            return {money % innerValue_, money / innerValue_ + innerCount_ + 1};
        }
        if (index <= mostInner_) {
            return {(mostInner_ - index) * innerValue_, lastCount_ + std::uint64_t{1}};
        }
        // The last unit makes up for what the other has run past 0.
        const std::uint64_t owed = (index - mostInner_) * innerValue_;
        const std::uint64_t fewest = (owed - 1) / lastValue_ + 1;
        return {fewest * lastValue_ - owed, lastCount_ - fewest + 1};
    }

private:
    std::uint32_t innerValue_;
    std::uint32_t lastValue_;
    std::uint32_t innerCount_;
    std::uint32_t lastCount_;
    std::uint32_t mostInner_;  ///< items that a rest can have room for
    std::uint64_t number_;
    bool isByLast_;
};
