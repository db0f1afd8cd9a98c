#pragma once

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

}  // namespace qxmix
