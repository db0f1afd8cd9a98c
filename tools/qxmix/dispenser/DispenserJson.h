#pragma once

#include "Dispenser.h"
#include "json/Json.h"

namespace qxmix {

/// A dispenser as the content of a dispenser file, every default filled in.
Json DispenserJson(const Dispenser& dispenser);

}  // namespace qxmix
