#pragma once

#include "findings/Findings.h"
#include "sweeps/MapAnswers.h"

#include <string>
#include <vector>

namespace qxmix {

/// A map with everything that is told of it in any form.
struct MapReport {
    /// @param otherwise  what the tool's own module decides otherwise (MapDifferences.h).
    /// @param isOneOfSeveral  whether there are maps of other currencies beside it: all that is
    /// told
    ///   tells its own then.
    MapReport(MapQuestions asked,
              MapAnswers came,
              std::vector<Finding> otherwise,
              bool isOneOfSeveral = false);

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

    const std::string& Currency() const { return questions.dispenser.currency; }
};

/// A dispenser in all currencies that it is asked in.
struct MapReports {
    std::vector<MapReport> maps;        ///< in their order, one at least
    std::vector<std::string> notAsked;  ///< currencies that Ctrl-C came before

    bool AreSeveral() const { return maps.size() + notAsked.size() > 1; }
    bool IsComplete() const;
    ExitStatus Status() const;
    std::vector<Finding> Findings() const;

    /// Error code written last; empty: none.
    std::string LastCode() const;
};

}  // namespace qxmix
