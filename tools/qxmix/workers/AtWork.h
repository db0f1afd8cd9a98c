#pragma once

#include "Worker.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <string>

namespace qxmix {

/// What a worker tells of its task while it is at it, in memory that it shares with the tool.
struct WorkMark {
    std::atomic<std::uint64_t> item{0};  ///< that it is at; 0: none; a calculation alone is item 1
    std::atomic<std::int64_t> workedBefore{0};  ///< its processor time then, in nanoseconds
    std::atomic<bool> isWorn{false};            ///< it wants to be replaced after its task
};

/// A job's hold on the tool: at which item it is, so that its deadline can be kept and its end be
/// known although nothing is heard of it, and what has come of it so far.
class AtWork {
public:
    AtWork(WorkMark& mark, const PartSink& send) : mark_(mark), send_(send) {}

    /// Before each item that has a deadline.
    ///
    /// @param item  from 1.
    void Begin(std::uint64_t item);

    /// After each item.
    void End() { mark_.item = 0; }

    /// Sends what has come so far; more follows.
    void Send(const std::string& part) { send_(part); }

    /// Has the worker replaced after this job.
    void WearOut() { mark_.isWorn = true; }

private:
    WorkMark& mark_;
    const PartSink& send_;
};

/// What workers do beside calculating, each in its own process: bytes in, bytes out.
using Job = std::function<std::string(const std::string& bytes, AtWork& work)>;

}  // namespace qxmix
