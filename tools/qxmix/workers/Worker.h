#pragma once

#include "ChildProcess.h"
#include "WorkerMessages.h"

#include <chrono>
#include <functional>
#include <optional>
#include <string>

namespace qxmix {

using Milliseconds = std::chrono::milliseconds;

/// How one call of the module came to its end.
struct Ending {
    enum class Kind {
        Answered,
        NoAnswer,  ///< not within the deadline
        Endless,   ///< it was not made, since it is known never to end
        Crashed,
    };

    /// Whether who was called is of further use.
    bool LeavesWorker() const { return kind == Kind::Answered || kind == Kind::Endless; }

    Kind kind = Kind::NoAnswer;
    std::string crash;  ///< Crashed: "signal 11 (Segmentation fault)"
};

/// A calculation and how it ended; the calculation's content counts only when it was answered, the
/// code that it has left also when it never ends.
struct Reply {
    Ending ending;
    Calculation calculation{};  ///< all zero without an answer
    std::string report{};       ///< what came of a job
    bool isLast = true;         ///< false: a part of what came of it, others follow
    std::uint64_t item = 0;     ///< not answered: the one that the worker was at; 0: none
};

/// What a worker has sent as a reply.
Reply ReplyWith(Calculation calculation);

/// Takes a part of what comes of a job.
using PartSink = std::function<void(const std::string& bytes)>;

/// What a worker does beside calculating, in its own process: bytes in, bytes out, and perhaps
/// parts of them before.
using WorkerJob = std::function<std::string(const std::string& bytes, const PartSink& send)>;

/// Takes the module's trace lines one by one.
using TraceSink = std::function<void(const std::string& line)>;

/// Is told how long an answer has been waited for.
using Tick = std::function<void(Milliseconds waited)>;

/// A child process that has one library open and asks it, one call at a time.
///
/// After a missed deadline or a crash it is of no further use. All functions throw Interruption
/// when Ctrl-C was pressed while they waited.
class Worker {
public:
    /// @param trace  hears the lines of the library's objects while they are created.
    /// @param job    what StartJob has done; empty: nothing.
    /// @throw WorkError when the library cannot be used.
    Worker(const OpenOrder& order, const TraceSink& trace, const WorkerJob& job = nullptr);

    const Opening& Opened() const { return opening_; }

    /// @param trace  hears the lines of this calculation; without it none are made.
    /// @param tick   is told about ten times a second how long the answer has been waited for.
    Reply Calculate(const MixRequest& request,
                    Milliseconds deadline,
                    const TraceSink& trace,
                    const Tick& tick = nullptr);

    /// Sends a calculation on its way; Finish brings its reply. One at a time.
    void Start(const MixRequest& request, bool traces);

    /// Sends a job on its way; Finish brings its reply, the parts of it one by one.
    void StartJob(const std::string& bytes);

    /// The reply of the calculation on its way, if it is there; does not wait.
    std::optional<Reply> Finish(const TraceSink& trace);

    /// Ends the worker although no reply is there.
    Reply GiveUp();

    /// Becomes readable when Finish may have something to do.
    ChannelEnd Descriptor() { return child_.Connection().Descriptor(); }

    /// Processor time that the worker has used so far.
    std::chrono::nanoseconds WorkingTime() const { return child_.WorkingTime(); }

    /// @param catalogue  filled when the call was answered.
    Ending ListTypes(Catalogue& catalogue, Milliseconds deadline);

    /// The registry as the library left it; empty when the worker is gone.
    std::string SaveRegistry();

private:
    Ending Exchange(const Message& order,
                    Milliseconds deadline,
                    const TraceSink& trace,
                    Message& answer,
                    const Tick& tick = nullptr);
    Channel::State Receive(Message& answer, Clock::time_point until, const Tick& tick);
    Ending Crash();

    ChildProcess child_;
    Opening opening_;
};

}  // namespace qxmix
