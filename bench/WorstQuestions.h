#pragma once

#include "Contestants.h"

namespace bench {

/// A question that is hard for one algorithm.
struct WorstQuestion {
    Algorithm algorithm;
    const char* name;
    Question question;
};

/// Where visiting every combination takes seconds to minutes, and where the module itself takes
/// longest.
std::vector<WorstQuestion> WorstQuestions();

}  // namespace bench
