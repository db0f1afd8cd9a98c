#pragma once

#include "Draining.h"

#include <string>

namespace qxmix {

/// Items for people, the largest first: "1x50 3x20".
///
/// @param tellsCassettes  names the cassette where several hold the same note: "B:1x20 C:2x20".
std::string NotesText(const Dispenser& dispenser, const CassetteItems& items, bool tellsCassettes);

}  // namespace qxmix
