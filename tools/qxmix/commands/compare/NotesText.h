#pragma once

#include "dispenser/Dispenser.h"
#include "sweeps/MapRow.h"

#include <string>

namespace qxmix {

/// The items of an answer for people, the largest first: "1x50 3x20".
///
/// @param tellsCassettes  names the cassette where several hold the same note: "B:1x20 C:2x20".
std::string NotesText(const Dispenser& dispenser, const MapCell& cell, bool tellsCassettes);

}  // namespace qxmix
