#pragma once

#include "SimulationFleet.h"
#include "answers/Envelope.h"
#include "files/Output.h"
#include "pages/PageHtml.h"
#include "terminal/Terminal.h"

namespace qxmix {

/// Many dispensers for people: which mix serves most over all of them, and a row each, the worst
/// first.
///
/// @param hasAll  whether what a simulation tells of each follows.
void WriteSimulationFleetText(const SimulationFleet& fleet,
                              bool hasAll,
                              const Painter& painter,
                              const TakePart& take);

/// The envelope with the mixes of each dispenser, in the order in which they were named.
void WriteSimulationFleetJson(const SimulationFleet& fleet,
                              const Envelope& envelope,
                              const TakePart& take);

/// Which mix serves most over all dispensers, and what that costs, in lines.
std::string SimulationFleetVerdict(const SimulationFleet& fleet);

/// Those that cannot be asked, then those whose best mix serves least of what is asked.
///
/// @param mix  of the fleet: of those that are served alike, what loses most by it comes first.
std::vector<const SimulationFleetRow*> LeastServedFirst(const SimulationFleet& fleet,
                                                        std::uint16_t mix);

/// The mixes over all dispensers, and how many dispensers there are, as JSON.
Json SimulationFleetJson(const SimulationFleet& fleet);
Json SimulationTotalsJson(const SimulationFleet& fleet);

/// One HTML file with a table of the dispensers, which opens each with its mixes.
///
/// @throw InputError when it would be too large.
std::string SimulationFleetPage(const SimulationFleet& fleet,
                                Envelope envelope,
                                const Facts& facts,
                                const std::string& commandLine);

/// A line for each dispenser and mix.
void WriteSimulationFleetCsv(const SimulationFleet& fleet, const TakePart& take);

}  // namespace qxmix
