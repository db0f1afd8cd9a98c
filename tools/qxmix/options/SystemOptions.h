#pragma once

#include "Parser.h"

namespace qxmix {

/// Takes back the common options that mean nothing on this system: --help does not list them, and
/// who gives one is told why in one line.
void LimitOptions(CLI::App& command);

}  // namespace qxmix
