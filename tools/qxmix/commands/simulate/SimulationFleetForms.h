#pragma once

#include "SimulationFleet.h"
#include "answers/Envelope.h"
#include "files/Output.h"
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

/// A line for each dispenser and mix.
void WriteSimulationFleetCsv(const SimulationFleet& fleet, const TakePart& take);

}  // namespace qxmix
