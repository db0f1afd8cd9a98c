#pragma once

#include "AtWork.h"
#include "SharedMemory.h"
#include "WorkDeadline.h"
#include "Worker.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace qxmix {

/// Several workers side by side: each asks one library, or does a job of the caller's own.
///
/// A deadline is one of the processor time, see WorkDeadline, and of each item of a task: the
/// worker tells in shared memory at which it is, see AtWork. A worker that misses one or crashes is
/// replaced by a new one when the next task comes.
class WorkerPool {
public:
    struct Task {
        std::uint64_t number = 0;  ///< the caller's own
        MixRequest request;
        Milliseconds deadline{0};  ///< of each item
        std::string job{};  ///< if not empty: bytes for the pool's job, and nothing is calculated
    };

    /// The next task; none when there are no more for now.
    using Source = std::function<std::optional<Task>()>;
    using Sink = std::function<void(const Task& task, const Reply& reply)>;

    /// @param size   workers, at least 1.
    /// @param trace  hears the module's lines; empty: nobody does.
    /// @param job    what workers do with tasks that are no calculation; empty: there are none.
    WorkerPool(OpenOrder order, std::size_t size, TraceSink trace, Job job = nullptr);

    /// Does tasks until there are no more and none is under way; replies come in the order in which
    /// they are ready.
    ///
    /// @throw WorkError when the library cannot be used, Interruption after Ctrl-C.
    void Run(const Source& source, const Sink& sink);

    // The same step by step, for a caller who waits for something else, too.

    /// Gives tasks to idle workers as long as there are both.
    ///
    /// @throw WorkError when the library cannot be used.
    void HandOut(const Source& source);

    /// Waits until TakeReplies may have something to do.
    ///
    /// @param other  waits for this end, too; kNoChannelEnd: there is none.
    /// @param until  when to stop waiting; time_point::max(): never.
    /// @return whether the other end has something to read.
    /// @throw Interruption after Ctrl-C.
    bool Wait(ChannelEnd other, Clock::time_point until) const;

    /// Files the replies that are there; does not wait. Ends what has missed its deadline.
    void TakeReplies(const Sink& sink);

    /// Ends all tasks that are under way; each gets the reply of a missed deadline.
    void GiveUp(const Sink& sink);

private:
    struct Place {
        WorkMark* mark;  // the worker's, in the shared memory
        std::unique_ptr<Worker> worker{};
        std::optional<Task> task{};
        std::uint64_t item = 0;  // that the worker was at when it was last looked at
        WorkDeadline deadline{};
    };

    void RunHere(const Source& source, const Sink& sink) const;
    bool IsBusy() const;
    void Start(Place& place);
    void Employ(Place& place);
    std::optional<Reply> ReplyOf(Place& place);
    static bool HasMissed(Place& place, Clock::time_point now);
    static void File(Place& place, const Reply& reply, const Sink& sink);

    OpenOrder order_;
    TraceSink trace_;
    Job job_;
    SharedMemory memory_;
    std::vector<Place> places_;
};

}  // namespace qxmix
