#pragma once

#include "LintCase.h"
#include "workers/Asker.h"

namespace qxmix {

/// Asks what the rules want to know beside the answers to the amounts. Nothing is asked twice.
///
/// @param order  the library and what it reads.
/// @param asker  of the same.
/// @throw Interruption after Ctrl-C, WorkError when the library cannot be used.
void AskSecondRound(LintCase& lint, const OpenOrder& order, Asker& asker);

}  // namespace qxmix
