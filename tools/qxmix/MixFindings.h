#pragma once

#include "MixAnswers.h"

#include <vector>

namespace qxmix {

/// What must not be overlooked in the answers: QX401 for money or items too many, QX402 for no
/// answer. Each names the mixes that pay the amount exactly; those not among the answers are asked
/// for it, a tenth of a second each.
std::vector<Finding>
DangersOf(const MixQuestions& questions, const std::vector<MixAnswer>& answers, Asker& asker);

}  // namespace qxmix
