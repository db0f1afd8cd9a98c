#pragma once

#include <cstdint>

#include "Reference.h"
#include "UnitTable.h"

namespace reference {

/// Units of a request that an ordering keeps, brought to the unit of the amount and put in order,
/// the cassettes of each fullest first.
UnitTable OrderedUnits(Ordering ordering, const Object& object, const std::uint8_t* request);

}  // namespace reference
