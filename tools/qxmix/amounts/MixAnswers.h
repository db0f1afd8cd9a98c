#pragma once

#include "answers/Answer.h"
#include "dispenser/Dispenser.h"
#include "findings/Findings.h"
#include "workers/Asker.h"

#include <cstdint>
#include <string>
#include <vector>

namespace qxmix {

/// One amount asked of one dispenser by one or more mixes.
struct MixQuestions {
    Dispenser dispenser;
    std::uint32_t amount = 0;
    bool asksList = false;             ///< the answer is a list, however many mixes it has
    std::vector<MixRequest> requests;  ///< one a mix, in the order of the answers
    Milliseconds deadline = kUsualDeadline;
};

/// What is known of the questions.
struct MixAnswers {
    std::vector<Answer> answers;
    std::string raw;  ///< of the last one: request and result as they came back; empty: none came
    std::vector<Finding> findings;
    bool isComplete = true;  ///< false: Ctrl-C came before the end
};

/// Asks each mix.
///
/// @param keepsRegistry  whether what each answered call left in the registry is kept.
MixAnswers AskMixes(const MixQuestions& questions, Asker& asker, bool keepsRegistry);

/// The highest exit status of the answers, or that of an interruption.
ExitStatus ExitStatusOf(const MixAnswers& answers);

/// What must not be overlooked in one dangerous answer: QX401 for money or items too many, QX402
/// for no answer. Without advice.
Finding DangerOf(const Answer& answer);

/// What must not be overlooked in the answers. Each finding names the mixes that pay the amount
/// exactly; those not among the answers are asked for it, a tenth of a second each.
std::vector<Finding>
DangersOf(const MixQuestions& questions, const std::vector<Answer>& answers, Asker& asker);

/// Notes where the mix that is to take the fewest items takes twice as many as would do.
std::vector<Finding> WastesOf(const MixQuestions& questions, const std::vector<Answer>& answers);

/// Where a library other than the tool's own answers or does not answer, and the tool's own module
/// decides otherwise.
std::vector<Finding>
DifferencesOf(const MixQuestions& questions, const std::vector<Answer>& answers, Asker& asker);

}  // namespace qxmix
