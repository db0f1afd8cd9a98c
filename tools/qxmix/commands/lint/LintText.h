#pragma once

#include "LintReport.h"
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

}  // namespace qxmix
