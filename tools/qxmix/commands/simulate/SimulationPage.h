#pragma once

#include "SimulationAnswers.h"
#include "answers/Envelope.h"

#include <string>

namespace qxmix {

/// The simulation as one HTML file that needs nothing else.
///
/// @param envelope     with the simulation in it; the page holds it as it is.
/// @param commandLine  shown in the page.
/// @throw InputError when the page would be too large.
std::string SimulationPage(const SimulationQuestions& questions,
                           const SimulationAnswers& answers,
                           const Envelope& envelope,
                           const std::string& commandLine);

}  // namespace qxmix
