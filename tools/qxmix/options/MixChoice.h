#pragma once

#include "AskOptions.h"

namespace qxmix {

/// How many mixes the question of a command can be put to.
enum class MixChoice { One, Several };

/// As AddAskOptions(command, options), which is for several mixes.
void AddAskOptions(CLI::App& command, AskOptions& options, MixChoice choice);

}  // namespace qxmix
