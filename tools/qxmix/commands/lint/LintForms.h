#pragma once

#include "LintReport.h"
#include "json/JsonName.h"
#include "terminal/Terminal.h"

#include <string>
#include <vector>

namespace qxmix {

/// What was found, for people.
///
/// @param quiet  leaves the notes out.
std::string LintText(const LintCase& lint,
                     const std::vector<LintFinding>& findings,
                     bool quiet,
                     const Painter& painter);

/// What was asked, as the envelope holds it.
Json LintInputJson(const LintCase& lint);

/// What was found, as the result of the envelope.
Json LintResultJson(const std::vector<LintFinding>& findings);

}  // namespace qxmix
