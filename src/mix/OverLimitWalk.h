#pragma once

#include "ExactWalk.h"
#include "Refusal.h"

/// Finds the combination over the limit that the plain loops would meet last: the first one of the
/// walk upwards. What cannot get over the limit in notes or in coins is stepped over.
class OverLimitRule : public WalkRule {
public:
    OverLimitRule(const SearchUnits& units, const ExactWalk& walk, Refusal& refusal) noexcept
        : units_(units), walk_(walk), refusal_(refusal) {
        for (unsigned unit = units.n; unit-- > 0;) {
            smallestNotes_[unit] = smallestNotes_[unit + 1];
            smallestCoins_[unit] = smallestCoins_[unit + 1];
            Counts& smallest = units.areCoins[unit] ? smallestCoins_ : smallestNotes_;
            if (smallest[unit] == 0 || units.values[unit] < smallest[unit]) {
                smallest[unit] = units.values[unit];
            }
        }
    }

    /// Whether any combination at all can be over the limit.
    bool MayExceed() const noexcept { return MayExceed(0, ItemTotals{}, units_.amount); }

    bool Enters(unsigned level, const Counts& combination, std::uint32_t rest) const noexcept {
        return MayExceed(level + 1, units_.TotalsOf(combination, level + 1), rest);
    }

    Verdict Visit(const Counts& combination) noexcept {
        if (units_.IsWithinLimit(combination) || !walk_.Regards(combination)) {
            return Verdict::GoOn;
        }
        refusal_.Remember(combination);
        return Verdict::EndSearch;
    }

private:
    bool MayExceed(unsigned level, const ItemTotals& taken, std::uint32_t rest) const noexcept {
        return MayExceed(taken.notes, smallestNotes_[level], rest) ||
               MayExceed(taken.coins, smallestCoins_[level], rest);
    }

    /// Whether `rest`, paid in the smallest items, brings one kind over the limit.
    bool MayExceed(std::uint32_t taken, std::uint32_t smallest, std::uint32_t rest) const noexcept {
        return taken > units_.limit || (smallest != 0 && rest / smallest > units_.limit - taken);
    }

    const SearchUnits& units_;
    const ExactWalk& walk_;
    Refusal& refusal_;
    Counts smallestNotes_{};  ///< by level: the smallest value from it on, 0 where there is none
    Counts smallestCoins_{};
};
