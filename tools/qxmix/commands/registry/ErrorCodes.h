#pragma once

#include "dispenser/Dispenser.h"

#include <string>

namespace qxmix {

/// What an error code in the registry says; "unknown" for one that is not the module's.
std::string ErrorCodeMeaning(const std::string& code);

/// The code that a value holds: five bytes as the module writes them, or text of somebody else.
std::string ErrorCodeOf(const StoredValue& value);

}  // namespace qxmix
