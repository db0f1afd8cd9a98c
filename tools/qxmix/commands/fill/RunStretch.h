#pragma once

#include "FillQuestions.h"
#include "demand/Simulation.h"
#include "workers/AtWork.h"

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

namespace qxmix {

/// A stretch of a run that a worker goes through in one go, since a message for each withdrawal
/// would take ten times as long as the module.
struct RunOrder {
    std::uint32_t run = 0;
    std::uint16_t mix = 0;
    std::uint64_t first = 0;               ///< withdrawals that are behind it
    std::uint64_t most = 0;                ///< withdrawals after which it comes back
    std::chrono::microseconds longest{0};  ///< time after which it comes back, once it got on
    std::vector<Cassette> cassettes;       ///< of these count, status, value
};

/// What became of it.
struct RunAnswer {
    std::vector<SimulationStep> steps;
    std::string code;  ///< error code that was left last; empty: none
};

std::string ToJob(const RunOrder& order);
RunAnswer ReadRunAnswer(const std::string& bytes);

/// Goes through runs in a worker's own process, which has loaded the registry already.
///
/// @param library    file of the library.
/// @param dispenser  as in all runs but for what an order says.
Job RunJob(const std::string& library, const Dispenser& dispenser, const RunDemands& demands);

}  // namespace qxmix
