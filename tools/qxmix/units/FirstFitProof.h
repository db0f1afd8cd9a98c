#pragma once

#include "Units.h"

#include <algorithm>

#include <cstdint>
#include <vector>

namespace qxmix {

/// Whether it is proved that mixes 4 and 9 never answer an amount that their units hold.
///
/// Their loops do not end at 0. With three and more units only the counts of the last three ever
/// change, and whatever they are, wrapped or not, what they pay is a multiple of the largest power
/// of two that divides all three values: a rest that is none is never made.
///
/// @param kept    the units in the order of the mix; never proved for fewer than three, or for
///   more than five, which are refused.
/// @param amount  in the unit of the amount, as it is searched for.
inline bool IsFirstFitEndless(const std::vector<Unit>& kept, std::uint32_t amount) {
    constexpr std::size_t kCounted = 3;
    constexpr std::size_t kMostUnits = 5;
    if (kept.size() < kCounted || kept.size() > kMostUnits) {
        return false;
    }
    std::uint32_t rest = amount;
    std::uint32_t valueBits = 0;
    for (std::size_t place = 0; place < kept.size(); ++place) {
        const Unit& unit = kept[place];
        if (unit.searched == 0) {
            return false;
        }
        if (place + kCounted < kept.size()) {
            rest -= std::min(rest / unit.searched, unit.counted) * unit.searched;
        } else {
            valueBits |= unit.searched;
        }
    }
    const std::uint32_t power = valueBits & (0U - valueBits);
    return rest % power != 0;  // cppcheck-suppress zerodiv; no value of the three is 0
}

}  // namespace qxmix
