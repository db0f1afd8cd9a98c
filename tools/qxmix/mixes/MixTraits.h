#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace qxmix {

/// What sets one mix apart from others, as the module's own tables have it.
struct MixTraits {
    bool keepsMinimum = false;      ///< passes over units of no more items than CSTMinimum4Mix6
    bool passesOverLow = false;     ///< passes over units that are low
    bool rescalesNotes = false;     ///< brings notes to the unit of the amount
    bool isFirstFit = false;        ///< may take too much, or never answer
    bool comparesShares = false;    ///< chooses by how evenly the units are emptied
    bool comparesEvenness = false;  ///< chooses by how even the counts of items are
    bool stopsAtLimit = false;      ///< of two units: ends at the first combination over the limit
    bool refusesInSilence = false;  ///< records no code where its first unit is worth nothing
    std::size_t mostUnits = 0;      ///< of more it refuses every amount
};

/// @param mix  a number that no mix has has no trait either.
const MixTraits& Traits(std::uint16_t mix);

std::vector<std::uint16_t> AllMixes();

/// The mixes that have a trait, such as &MixTraits::isFirstFit, or those that have it not.
std::vector<std::uint16_t> MixesWith(bool MixTraits::*trait);
std::vector<std::uint16_t> MixesWithout(bool MixTraits::*trait);

}  // namespace qxmix
