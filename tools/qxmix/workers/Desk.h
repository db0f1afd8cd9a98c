#pragma once

#include "WorkerPool.h"
#include "terminal/Progress.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>

namespace qxmix {

/// Is told after each answer how far the work is.
using ProgressListener = std::function<void(const WorkProgress&)>;

/// Hands out the questions of a long command one by one, and files the replies.
class Desk {
public:
    virtual ~Desk() = default;

    /// The next question; none when there are no more for now.
    virtual std::optional<WorkerPool::Task> NextTask() = 0;

    virtual void Take(const WorkerPool::Task& task, const Reply& reply) = 0;

    const WorkProgress& Progress() const { return progress_; }

protected:
    void CountDone(std::uint64_t calculations, std::uint64_t misses) {
        progress_.done += calculations;
        progress_.misses += misses;
    }

private:
    WorkProgress progress_;
};

/// Has several workers answer all that a desk hands out.
///
/// @param order   the library and what it reads.
/// @param jobs    workers side by side.
/// @param trace   hears the module's lines; a single worker asks then.
/// @param listen  is told after each answer.
/// @param job     what workers do with tasks that are no calculation; empty: there are none.
/// @return false when Ctrl-C came before the end.
/// @throw WorkError when the library cannot be used.
bool WorkOff(Desk& desk,
             const OpenOrder& order,
             std::size_t jobs,
             const TraceSink& trace,
             const ProgressListener& listen,
             const Job& job = nullptr);

}  // namespace qxmix
