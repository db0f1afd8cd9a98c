#pragma once

#include "LintReport.h"
#include "json/JsonName.h"
#include "terminal/Terminal.h"

#include <string>
#include <vector>

namespace qxmix {

/// "4 errors", "1 error"
std::string CountText(std::uint64_t count, const std::string& what);

/// The findings that people are told of: one where several mixes have the same.
///
/// @param quiet       leaves the notes out.
/// @param isAccepted  those that are accepted, or the others.
std::vector<LintFinding>
ToldFindings(const std::vector<LintFinding>& findings, bool quiet, bool isAccepted);

/// "mix 4 crashes on 2 amounts": what the module did beside answering, a line a mix.
std::vector<std::string> CrashLines(const LintCases& cases);

/// What was found, for people.
///
/// @param quiet   leaves the notes out.
/// @param hasAll  tells of accepted findings more than their number.
std::string LintText(const LintCases& cases,
                     const std::vector<LintFinding>& findings,
                     bool quiet,
                     bool hasAll,
                     const Painter& painter);

/// What was asked, as the envelope holds it.
Json LintInputJson(const LintCases& cases);

/// What was found, as the result of the envelope.
Json LintResultJson(const std::vector<LintFinding>& findings);

}  // namespace qxmix
