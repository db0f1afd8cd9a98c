#pragma once

#include "SimulationAnswers.h"
#include "findings/Findings.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace qxmix {

/// The middle, the least and the most over all runs; of an even count of runs the lower of the two
/// in the middle. What a run does not have counts as more than anything, and stays nothing.
template <typename Number>
struct RunRange {
    Number median;
    Number least;
    Number most;
};

using CountRange = RunRange<std::uint64_t>;
using TimeRange = RunRange<std::optional<std::int64_t>>;
using MoneyRange = RunRange<std::optional<Money>>;

/// How one mix fared in all runs.
struct SimulationRow {
    std::size_t place = 0;  ///< among the mixes asked
    std::uint16_t mix = 0;
    std::optional<std::size_t> rank;  ///< from 1 on; none: dangerous in some run
    std::size_t dangerousRuns = 0;
    CountRange served{};
    CountRange inPart{};
    CountRange refused{};
    CountRange dangerous{};
    CountRange tenths{};  ///< of an item for each withdrawal with something taken
    CountRange spread{};
    TimeRange firstRefusal{};
    TimeRange firstEmpty{};
    MoneyRange left{};  ///< at the first refusal
};

/// The mixes, the best first: those that serve most, then those that serve most in part, then by
/// number. Behind them those that are not ranked.
std::vector<SimulationRow> RankMixes(const SimulationQuestions& questions,
                                     const SimulationAnswers& answers);

/// A simulation with everything that is told of it in any form.
struct SimulationReport {
    SimulationReport(SimulationQuestions asking, SimulationAnswers came);

    SimulationQuestions questions;
    SimulationAnswers answers;
    std::vector<SimulationRow> rows;  ///< the best mix first
    std::vector<Money> asked;         ///< of a mix in the first run, by currency of the demand
    std::uint64_t withdrawals = 0;    ///< of a run; the median of all
    std::string askedText;            ///< "100060 EUR", or "100060 EUR and 300 USD"
    std::string best;                 ///< who serves most; in two lines if it is long
    std::string danger;               ///< who is not ranked; empty: all are
    /// What the ranking does not tell of the first run, a line a mix: other outcomes than paid,
    /// refused and overpaid, and that the mix was given up.
    std::vector<std::string> remarks;
    std::vector<Finding> findings;  ///< how the demand was read, and the dangers of all runs
    ExitStatus status;              ///< the highest of the answers, or that of an interruption

    /// How the first run of a mix went.
    const SimulationSummary& First(const SimulationRow& row) const {
        return answers.runs.front()[row.place];
    }
};

/// How people call an outcome where "refused" stands for all withdrawals with nothing paid: then a
/// refusal of the module is one of its parts and needs a name of its own.
const char* PartWords(const OutcomeRow& row);

}  // namespace qxmix
