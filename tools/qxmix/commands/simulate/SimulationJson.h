#pragma once

#include "SimulationAnswers.h"
#include "json/JsonName.h"

namespace qxmix {

/// What was asked, as the envelope holds it.
Json SimulationInputJson(const SimulationQuestions& questions);

/// The simulation as the result of the envelope (schema/answer.schema.json): the demand, and the
/// mixes with the best first, each with its steps in the first run.
Json SimulationResultJson(const SimulationQuestions& questions, const SimulationAnswers& answers);

}  // namespace qxmix
