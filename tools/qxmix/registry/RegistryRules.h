#pragma once

#include "dispenser/Dispenser.h"
#include "findings/Findings.h"
#include "workers/WorkerMessages.h"

#include <string>
#include <vector>

namespace qxmix {

/// What is wrong with what the module reads: QX301 and QX303 to QX306.
///
/// @param registry  text of a registry file.
/// @param taken     what the module took from it.
/// @param fileName  the file as it was named, for advice; empty: the values stand in a dispenser
/// file.
std::vector<Finding>
CheckRegistry(const std::string& registry, const Opening& taken, const std::string& fileName);

/// What an error code in the registry says; "unknown" for one that is not the module's.
std::string ErrorCodeMeaning(const std::string& code);

/// The code that a value holds: five bytes as the module writes them, or text of somebody else.
std::string ErrorCodeOf(const StoredValue& value);

}  // namespace qxmix
