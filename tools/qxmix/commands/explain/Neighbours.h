#pragma once

#include "answers/Judgement.h"
#include "commands/mix/MixAnswers.h"
#include "dispenser/Dispenser.h"
#include "workers/Asker.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace qxmix {

/// An amount that is paid exactly.
struct Neighbour {
    std::uint32_t amount = 0;
    Reply reply;
    Judgement judgement;
};

/// What the module says beside an answer: the amounts around it, and the other mixes.
struct Surroundings {
    std::optional<Neighbour> below;  ///< none: not found, or not looked for
    std::optional<Neighbour> above;
    std::vector<std::uint16_t> payers;      ///< other mixes that pay the amount exactly
    std::vector<std::uint16_t> dangerous;   ///< other mixes that take too much for it
    std::vector<std::uint16_t> unanswered;  ///< other mixes that gave no answer
    bool isComplete = true;                 ///< false: Ctrl-C came before the end
};

/// Asks the other mixes for the amount, and, when it is not paid, the same mix for the amounts
/// around it: at most 500 each way, in the step of what customers can ask. Each has a tenth of a
/// second, and all together have two seconds.
Surroundings AskAround(const MixQuestions& questions, const MixAnswer& answer, Asker& asker);

}  // namespace qxmix
