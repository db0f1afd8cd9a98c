#pragma once

#include "SimulationReport.h"
#include "answers/Envelope.h"
#include "terminal/Terminal.h"

#include <string>

namespace qxmix {

/// The simulation for people: who serves most, who is dangerous, and a table with the best mix
/// first.
std::string SimulationText(const SimulationReport& report, bool isQuiet, const Painter& painter);

/// "99.3%": never 100 % of what is not all.
std::string PercentText(std::uint64_t part, std::uint64_t whole);

/// " 834  99.3%"
std::string ServedText(std::uint64_t served, std::uint64_t whole);

/// The first withdrawal that was refused: "Sun 18:13 50", or "none".
std::string RefusalText(const SimulationReport& report, const SimulationSummary& summary);

/// One run: a line for each withdrawal of each mix, with what the cassettes hold then. Several
/// runs: a line for each run and mix.
std::string SimulationCsv(const SimulationReport& report);

/// What was asked.
Json SimulationInputJson(const SimulationQuestions& questions);

/// The mixes with the best one first, without their answers one by one.
Json SimulatedMixesJson(const SimulationReport& report);

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
