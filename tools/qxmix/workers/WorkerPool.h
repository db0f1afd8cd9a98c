#pragma once

#include "WorkDeadline.h"
#include "Worker.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace qxmix {

/// Several workers that ask one library side by side.
///
/// A deadline is one of the processor time, see WorkDeadline.
class WorkerPool {
public:
    struct Task {
        std::uint64_t number = 0;  ///< the caller's own
        MixRequest request;
        Milliseconds deadline{0};
        std::string job{};  ///< if not empty: bytes for the pool's job, and nothing is calculated
    };

    /// The next task; none when there are no more.
    using Source = std::function<std::optional<Task>()>;
    using Sink = std::function<void(const Task& task, const Reply& reply)>;

    /// @param size   workers, at least 1.
    /// @param trace  hears the module's lines; empty: nobody does.
    /// @param job    what workers do with tasks that are no calculation; empty: there are none.
    WorkerPool(OpenOrder order, std::size_t size, TraceSink trace, Job job = nullptr);

    /// Does all tasks; replies come in the order in which they are ready.
    ///
    /// @throw WorkError when the library cannot be used, Interruption after Ctrl-C.
    void Run(const Source& source, const Sink& sink);

private:
    struct Place {
        std::unique_ptr<Worker> worker;
        std::optional<Task> task;
        std::size_t jobs = 0;  // done by this worker
        std::chrono::nanoseconds workingTimeBefore{0};
        WorkDeadline deadline;
    };

    void RunHere(const Source& source, const Sink& sink) const;
    bool StartNext(Place& place, const Source& source);

    /// Files a reply that has come, and goes on to the next task.
    ///
    /// @return false when there is none.
    bool GoOn(Place& place, const Source& source, const Sink& sink);
    void Wait() const;
    std::optional<Reply> ReplyOf(Place& place, Clock::time_point now);

    OpenOrder order_;
    TraceSink trace_;
    Job job_;
    std::vector<Place> places_;
};

}  // namespace qxmix
