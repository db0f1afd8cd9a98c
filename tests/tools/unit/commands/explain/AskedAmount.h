#pragma once

#include "amounts/MixAnswers.h"
#include "requests/Request.h"

namespace qxmix {

/// A dispenser asked for an amount by one mix of a library.
struct AskedAmount {
    AskedAmount(const Dispenser& dispenser,
                std::uint32_t amount,
                std::uint16_t mix,
                Milliseconds deadline,
                const char* library)
        : asker(library, "") {
        questions.dispenser = dispenser;
        questions.amount = amount;
        questions.deadline = deadline;
        questions.requests = {BuildRequest(dispenser, amount, mix)};
        answer = Judge(dispenser, {amount, mix, deadline},
                       asker.Ask(questions.requests.front(), deadline));
    }

    MixQuestions questions;
    Asker asker;
    Answer answer{{0}};
};

}  // namespace qxmix
