#pragma once

#include "LintReport.h"
#include "json/JsonName.h"

#include <vector>

namespace qxmix {

/// What was asked, as the envelope holds it.
Json LintInputJson(const LintCase& lint);

/// What was found, as the result of the envelope.
Json LintResultJson(const std::vector<LintFinding>& findings);

}  // namespace qxmix
