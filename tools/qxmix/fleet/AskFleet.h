#pragma once

#include "workers/Desk.h"
#include "workers/OpenedModule.h"

#include <functional>
#include <string>
#include <vector>

namespace qxmix {

/// What is done with one dispenser of many, in a worker's process.
///
/// @param name  of the dispenser.
/// @param here  opens the module in that process, or gives none: then workers of its own are to be
///   asked.
/// @return what is to be told of it, in any form; not empty.
using DispenserWork = std::function<std::string(const std::string& name, const OpenHere& here)>;

/// Takes what is told of a dispenser, in the order in which it is ready.
///
/// @param place   among the names.
/// @param report  empty: the work ended with its process.
using FleetSink =
    std::function<void(std::size_t place, const std::string& report, const std::string& crash)>;

/// Who works on them.
struct FleetWorkers {
    OpenOrder order;          ///< the library and what it reads at first
    std::size_t jobs = 1;     ///< side by side
    ProgressListener listen;  ///< is told after each dispenser
};

/// Does the same work on many dispensers, a dispenser a worker.
///
/// A worker asks the module in its own process, which costs a fraction of asking another one. Where
/// a call crashes or misses its deadline the worker ends, and the work on that dispenser is done
/// again with every call in a process of its own, as for a single dispenser.
///
/// @return false when Ctrl-C came before the end.
/// @throw WorkError when the library cannot be used.
bool AskFleet(const std::vector<std::string>& names,
              const FleetWorkers& workers,
              const DispenserWork& work,
              const FleetSink& sink);

}  // namespace qxmix
