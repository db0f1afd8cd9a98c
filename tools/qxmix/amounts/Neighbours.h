#pragma once

#include "MixAnswers.h"
#include "answers/Answer.h"
#include "dispenser/Dispenser.h"
#include "json/JsonName.h"
#include "workers/Asker.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace qxmix {

/// What the module says beside an answer: the amounts around it, and the other mixes.
struct Surroundings {
    std::optional<Answer> below;  ///< the nearest that is paid exactly; none: not found, or not
                                  ///< looked for
    std::optional<Answer> above;
    std::vector<std::uint16_t> payers;      ///< other mixes that pay the amount exactly
    std::vector<std::uint16_t> dangerous;   ///< other mixes that take too much for it
    std::vector<std::uint16_t> unanswered;  ///< other mixes that gave no answer
    bool isComplete = true;                 ///< false: Ctrl-C came before the end
};

/// Asks the other mixes for the amount, and, when it is not paid, the same mix for the amounts
/// around it: at most 500 each way, in the step of what customers can ask. Each has a tenth of a
/// second, and all together have two seconds.
Surroundings AskAround(const MixQuestions& questions, const Answer& answer, Asker& asker);

/// The nearest amounts that are paid, unless the amount itself is, and which other mixes pay it: a
/// line or two each.
std::string
AroundText(const MixQuestions& questions, const Answer& answer, const Surroundings& around);

/// The fields `nearest` and `otherMixes` of a result.
Json AroundJson(const Surroundings& around);

}  // namespace qxmix
