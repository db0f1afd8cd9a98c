#pragma once

#include "SimulationAnswers.h"
#include "answers/Envelope.h"
#include "files/OutputForm.h"

#include <string>

namespace qxmix {

/// What a file of this form holds.
///
/// @param envelope     with the simulation in it if the form needs it (NeedsResult).
/// @param commandLine  shown in a page.
/// @throw InputError when a page would be too large.
std::string SimulationFile(OutputForm form,
                           const SimulationQuestions& questions,
                           const SimulationAnswers& answers,
                           const Envelope& envelope,
                           const std::string& commandLine);

}  // namespace qxmix
