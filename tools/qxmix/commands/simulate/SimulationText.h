#pragma once

#include "SimulationAnswers.h"
#include "terminal/Terminal.h"

#include <string>

namespace qxmix {

/// The simulation for people: who serves most, who is dangerous, and a table with the best mix
/// first.
std::string SimulationText(const SimulationQuestions& questions,
                           const SimulationAnswers& answers,
                           bool isQuiet,
                           const Painter& painter);

}  // namespace qxmix
