#pragma once

#include "SimulationAnswers.h"

#include <string>

namespace qxmix {

/// The simulation as CSV. One run: a line for each mix and withdrawal, with what the cassettes
/// hold behind it; what a missing answer leaves unknown is empty. Several runs: a line for each
/// run and mix.
std::string SimulationCsv(const SimulationQuestions& questions, const SimulationAnswers& answers);

}  // namespace qxmix
