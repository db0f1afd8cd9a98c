#include "JobsOption.h"

#include "CommonOptions.h"

#include <CLI/App.hpp>
#include <algorithm>
#include <thread>

namespace qxmix {

std::size_t JobsOption::Count() const {
    return given != 0 ? given : std::max(1U, std::thread::hardware_concurrency());
}

void AddJobsOption(CLI::App& command, JobsOption& option) {
    constexpr std::int64_t kMostJobs = 256;
    AddWholeOption(
        command, "--jobs", 1, kMostJobs,
        [&option](std::int64_t number) { option.given = static_cast<std::size_t>(number); },
        "workers side by side; without it one for each core");
}

}  // namespace qxmix
