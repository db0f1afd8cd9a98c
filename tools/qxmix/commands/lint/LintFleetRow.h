#pragma once

#include "LintReport.h"
#include "errors/Errors.h"
#include "fleet/Spool.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace qxmix {

/// What is kept of a dispenser of many while the others are asked.
struct LintFleetRow {
    std::string file;
    ExitStatus status = ExitStatus::Well;
    bool isAsked = false;  ///< false: it could not be read, or not be asked

    /// Findings that people are told of, by severity.
    std::array<std::uint32_t, 3> told{};
    std::uint32_t accepted = 0;  ///< those that are wanted as they are, and not in `told`

    /// The gravest finding as a line without its place, or why there is none; empty: all is well.
    std::string first;

    Spool::Part json;    ///< its element of the result
    Spool::Part text;    ///< all of it for people; empty unless it was asked for
    Spool::Part places;  ///< where in its file each finding is; empty: it is no file

    std::uint32_t Told(Severity severity) const { return told[static_cast<std::size_t>(severity)]; }
};

/// What a worker reports of a dispenser: the row, and the texts to be put away.
struct LintFleetReport {
    LintFleetRow row;
    std::string json;
    std::string text;
    std::string places;
};

/// @param isQuiet  leaves the notes out for people.
LintFleetReport ReportOf(const std::string& file,
                         const LintCases& cases,
                         const std::vector<LintFinding>& findings,
                         ExitStatus status,
                         bool isQuiet);

/// A dispenser that costs itself: nothing could be asked.
LintFleetReport ReportOf(const std::string& file, const ToolError& error);

/// Adds where in the dispenser's file its findings, or its error, are.
void AddPlaces(LintFleetReport& report);

std::string ToBytes(const LintFleetReport& report);
LintFleetReport ReadReport(const std::string& file, const std::string& bytes);

}  // namespace qxmix
