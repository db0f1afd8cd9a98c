#pragma once

#include "Findings.h"

namespace qxmix {

/// What a rule's findings have in common, whichever command finds them.
struct RuleText {
    const char* id;
    Severity severity;
    const char* advice;  ///< what to do, unless the finding knows better; empty: it always does
    const char* found;   ///< when it is found
};

/// All rules, by id.
const std::vector<RuleText>& RuleTexts();

/// What to do, as the rule says it.
const char* AdviceOf(const char* id);

/// The beginning of a finding: id, severity and advice of the rule.
///
/// @param id       of a rule in RuleTexts.cpp.
/// @param message  what it says.
Finding FindingOf(const char* id);
Finding FindingOf(const char* id, const std::string& message);

}  // namespace qxmix
