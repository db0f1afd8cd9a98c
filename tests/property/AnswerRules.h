#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "ModuleUnderTest.h"
#include "RandomRequests.h"

namespace property {

/// Lets some build of the module answer a request.
///
/// @return false when it is not asked, since its search may never end.
using Asker = std::function<bool(const RandomCase&, Answer&)>;

/// Something that holds of every answer, whatever the right one is; no second implementation is
/// needed to see it broken. Why each holds, and under which conditions, is in docs/why-right.md.
struct AnswerRule {
    const char* name;

    /// Whether the rule says anything about this request.
    bool (*applies)(const RandomCase& asked, const Answer& answer);

    /// What is wrong with the answer, in words; empty when nothing is. May ask other requests.
    std::string (*broken)(const RandomCase& asked, const Answer& answer, const Asker& ask);
};

const std::vector<AnswerRule>& AnswerRules();

}  // namespace property
