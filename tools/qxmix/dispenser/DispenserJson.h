#pragma once

#include "Dispenser.h"
#include "json/JsonName.h"

namespace qxmix {

/// A cassette as it stands in a dispenser file, every default filled in.
Json CassetteJson(const Cassette& cassette);

/// A dispenser as the content of a dispenser file, every default filled in.
Json DispenserJson(const Dispenser& dispenser);

}  // namespace qxmix
