#pragma once

#include "demand/DemandSource.h"
#include "demand/SimulationSummary.h"
#include "dispenser/Dispenser.h"
#include "workers/Desk.h"
#include "workers/Worker.h"

#include <cstdint>
#include <string>
#include <vector>

namespace qxmix {

/// The same withdrawals, asked of a dispenser that drains, by one or more mixes.
struct SimulationQuestions {
    Dispenser dispenser;
    std::vector<std::uint16_t> mixes;  ///< in order, each once
    DemandSource demand;
    std::uint32_t seed = 1;  ///< of the first run; each further run has the next one
    std::uint32_t runs = 1;  ///< 1 for a recorded demand that is asked as it is
    Milliseconds deadline{100};
    std::size_t jobs = 1;  ///< workers side by side

    bool IsRecorded() const { return IsOneRun(demand); }

    /// How recorded withdrawals were read.
    std::vector<Finding> Notes() const { return NotesOf(demand); }

    std::uint64_t CalculationCount() const { return SizeOfRuns(demand, seed, runs) * mixes.size(); }

    /// The demand of one run, counted from 0.
    Demand DemandOfRun(std::uint32_t run) const {
        return DemandOf(demand, seed + run, dispenser.currency);
    }
};

/// What is known of a simulation.
struct SimulationAnswers {
    Demand demand;                   ///< of the first run, as far as all mixes came
    std::size_t planned = 0;         ///< withdrawals of the first run
    std::vector<std::size_t> sizes;  ///< withdrawals of each run, as far as all mixes came
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
