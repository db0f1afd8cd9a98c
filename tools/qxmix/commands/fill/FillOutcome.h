#pragma once

#include "FillRuns.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace qxmix {

/// How a loading fares in all runs.
struct FillOutcome {
    Money worth;  ///< what the cassettes of the dispenser's currency hold at first
    ServedShare median;
    ServedShare worst;
    ServedShare promised;       ///< what so many runs reach as have to
    std::size_t reaching = 0;   ///< runs that reach the service
    std::size_t dangerous = 0;  ///< runs with an answer that must not reach a customer
    /// When each cassette runs low in the middle of the runs, in seconds from the first midnight;
    /// none: never, or it was low at first.
    std::vector<std::optional<std::int64_t>> low;
};

/// @param loaded  the dispenser at first.
FillOutcome OutcomeOf(const FillQuestions& questions,
                      const RunDemands& demands,
                      const Dispenser& loaded,
                      const std::vector<FillRun>& runs);

}  // namespace qxmix
