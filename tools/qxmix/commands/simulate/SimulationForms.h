#pragma once

#include "SimulationReport.h"
#include "answers/Envelope.h"
#include "terminal/Terminal.h"

#include <string>

namespace qxmix {

/// The simulation for people: who serves most, who is dangerous, and a table with the best mix
/// first.
std::string SimulationText(const SimulationReport& report, bool isQuiet, const Painter& painter);

/// One run: a line for each withdrawal of each mix, with what the cassettes hold then. Several
/// runs: a line for each run and mix.
std::string SimulationCsv(const SimulationReport& report);

/// What was asked.
Json SimulationInputJson(const SimulationQuestions& questions);

/// The demand, and the mixes with the best one first.
Json SimulationResultJson(const SimulationReport& report);

/// The simulation as one HTML file that needs nothing else.
///
/// @param envelope     with the simulation in it; the page holds it as it is.
/// @param commandLine  shown in the page.
/// @throw InputError when the page would be too large.
std::string SimulationPage(const SimulationReport& report,
                           const Envelope& envelope,
                           const std::string& commandLine);

}  // namespace qxmix
