#pragma once

#include "DayRange.h"
#include "ServedShare.h"
#include "demand/DemandSource.h"
#include "dispenser/Dispenser.h"
#include "workers/Worker.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace qxmix {

/// Of 100 runs so many have to reach the service that is asked.
constexpr std::uint64_t kPercentOfRuns = 95;

/// The demands of all runs, by run.
using RunDemands = std::vector<std::shared_ptr<const Demand>>;

/// How a dispenser is to be filled.
struct FillQuestions {
    Dispenser dispenser;
    std::vector<std::uint16_t> mixes;  ///< in order, each once
    DemandSource demand;
    std::string serviceText = "99.5";  ///< percent of the withdrawals, as it was written
    ServedShare service{995, 1000};
    std::uint32_t bundle = 100;        ///< items of one, where a cassette does not say
    std::vector<std::uint32_t> notes;  ///< that cassettes may have, each once; none: as they are
    std::uint32_t seed = 1;            ///< of the first run; each further run has the next one
    std::uint32_t runs = 50;           ///< 1 for a recorded demand that is asked as it is
    Milliseconds deadline{100};
    std::size_t jobs = 1;  ///< workers side by side

    /// Intervals that are compared by what they cost in a day; none: one is asked.
    std::optional<DayRange> range;

    bool IsRecorded() const { return IsOneRun(demand); }

    /// Days until the next refill.
    std::uint32_t Days() const { return DaysOf(demand); }

    /// Runs that may miss the service.
    std::size_t MostMisses() const {
        return static_cast<std::size_t>(runs * (100 - kPercentOfRuns) / 100);
    }

    /// The runs of a simulation with this seed and so many runs.
    RunDemands Demands() const;
};

}  // namespace qxmix
