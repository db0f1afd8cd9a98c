#pragma once

#include "SimulationQuestions.h"
#include "SimulationSummary.h"
#include "workers/Desk.h"

#include <cstdint>
#include <string>
#include <vector>

namespace qxmix {

/// What is known of a simulation.
struct SimulationAnswers {
    Demand demand;            ///< of the first run, as far as all mixes came
    std::size_t planned = 0;  ///< withdrawals of a run
    /// The first run step by step, one list a mix.
    std::vector<std::vector<SimulationStep>> steps;
    /// For each run the summaries of the mixes. After Ctrl-C the whole runs; if even the first was
    /// not whole, what there is of it.
    std::vector<std::vector<SimulationSummary>> runs;
    std::size_t wholeRuns = 0;  ///< of them those that were simulated to the end
    bool isComplete = true;     ///< false: Ctrl-C came before the end
    std::string lastCode;       ///< error code that the last mix of the last run left; empty: none
};

/// Asks all mixes for one withdrawal after the other, several mixes side by side.
///
/// @param order     the library and what it reads.
/// @param trace     hears the module's lines; the mixes take turns then.
/// @param progress  is told after each answer.
/// @throw WorkError when the library cannot be used.
SimulationAnswers Simulate(const SimulationQuestions& questions,
                           const OpenOrder& order,
                           const TraceSink& trace,
                           const ProgressListener& progress);

}  // namespace qxmix
