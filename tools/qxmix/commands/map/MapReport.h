#pragma once

#include "findings/Findings.h"
#include "sweeps/MapAnswers.h"

#include <string>
#include <vector>

namespace qxmix {

/// A map with everything that is told of it in any form.
struct MapReport {
    /// @param otherwise  what the tool's own module decides otherwise (MapDifferences.h).
    MapReport(MapQuestions asked, MapAnswers came, std::vector<Finding> otherwise);

    MapQuestions questions;
    MapAnswers answers;
    std::vector<Finding> differences;

    // The first line: dangers first; without any, how many amounts are paid.
    std::string word;
    Outcome colour = Outcome::Paid;  ///< the word's
    std::string rest;

    /// What the map calls an outcome: a missed deadline is "never answers" where each one is
    /// proved.
    const char* WordsOf(const OutcomeRow& row) const {
        return row.outcome == Outcome::NoAnswer && areMissesProved ? "never answers" : row.words;
    }
    bool areMissesProved;

    /// A line for each set of mixes that refuse the same amounts: "Not paid by mix 1: 10, 30 EUR".
    std::vector<std::string> unpaid;

    std::vector<Finding> findings;  ///< the dangers, then the differences
    ExitStatus status;              ///< the highest of the answers, or that of an interruption
};

}  // namespace qxmix
