#pragma once

#include "Parser.h"

#include <cstddef>

namespace qxmix {

/// How many workers ask side by side.
struct JobsOption {
    std::size_t given = 0;  ///< --jobs; 0: not given

    /// What was given, or else one worker for each core.
    std::size_t Count() const;
};

void AddJobsOption(CLI::App& command, JobsOption& option);

}  // namespace qxmix
