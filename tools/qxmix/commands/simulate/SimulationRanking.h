#pragma once

#include "SimulationAnswers.h"

#include <cstddef>
#include <cstdint>
#include <optional>
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

}  // namespace qxmix
