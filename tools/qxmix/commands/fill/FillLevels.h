#pragma once

#include "FillRuns.h"

#include <cstdint>
#include <vector>

namespace qxmix {

/// What a cassette holds at one time, over all runs.
struct HeldRange {
    std::uint32_t median = 0;  ///< of an even count of runs the lower of the two in the middle
    std::uint32_t least = 0;
    std::uint32_t most = 0;
};

/// What cassettes hold in the course of the runs.
struct FillLevels {
    std::int64_t step = 1;  ///< seconds from one time to the next; the first time is 0
    std::vector<std::vector<HeldRange>> cassettes;  ///< by cassette of the dispenser, then by time
};

/// Looks at all runs at the first midnight, and then at each hour, or at so many of them as tell
/// the whole time in less than two hundred.
///
/// @param loaded  the dispenser at first.
FillLevels LevelsOf(const FillQuestions& questions,
                    const RunDemands& demands,
                    const Dispenser& loaded,
                    const std::vector<FillRun>& runs);

}  // namespace qxmix
