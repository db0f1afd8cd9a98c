#pragma once

#include "MixAnswers.h"

#include <vector>

namespace qxmix {

/// What must not be overlooked in one dangerous answer: QX401 for money or items too many, QX402
/// for no answer. Without advice.
Finding DangerOf(const Answer& answer);

/// What must not be overlooked in the answers. Each finding names the mixes that pay the amount
/// exactly; those not among the answers are asked for it, a tenth of a second each.
std::vector<Finding>
DangersOf(const MixQuestions& questions, const std::vector<Answer>& answers, Asker& asker);

/// Where a library other than the tool's own answers or does not answer, and the tool's own module
/// decides otherwise.
std::vector<Finding>
DifferencesOf(const MixQuestions& questions, const std::vector<Answer>& answers, Asker& asker);

}  // namespace qxmix
