#pragma once

#include "LintFleet.h"
#include "answers/Envelope.h"
#include "terminal/Terminal.h"

#include <functional>
#include <string>

namespace qxmix {

/// Many dispensers for people: a verdict over all, and a row each, the worst first.
///
/// @param hasAll  whether all that was found follows, a dispenser after the other.
void WriteFleetText(const LintFleet& fleet,
                    bool hasAll,
                    const Painter& painter,
                    const TakePart& take);

/// The envelope with a result for each dispenser, in the order in which they were named.
void WriteFleetJson(const LintFleet& fleet, const Envelope& envelope, const TakePart& take);

/// How many dispensers have nothing worse than what, as JSON.
Json LintTotalsJson(const LintFleet& fleet);

/// "Of 4 dispensers 2 have errors, 1 cannot be asked"
std::string LintFleetVerdict(const LintFleet& fleet);

/// The dispensers, the worst first.
std::vector<const LintFleetRow*> WorstFirst(const LintFleet& fleet);

/// One HTML file with a table of the dispensers, which opens each with what was found.
///
/// @throw InputError when it would be too large.
std::string
LintFleetPage(const LintFleet& fleet, Envelope envelope, const std::string& commandLine);

/// A line a finding, or a dispenser that could not be asked.
void WriteLintCsv(const LintFleet& fleet, const TakePart& take);

/// A log of a check as SARIF 2.1.0: the rules with their texts, and a result a finding.
void WriteLintSarif(const LintFleet& fleet, const Envelope& envelope, const TakePart& take);

/// A test as JUnit's XML: a case a dispenser, which fails with its errors and warnings.
void WriteLintJUnit(const LintFleet& fleet, const TakePart& take);

/// A command of a workflow for each finding that is not accepted.
void WriteLintGithub(const LintFleet& fleet, const TakePart& take);

}  // namespace qxmix
