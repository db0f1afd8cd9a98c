#include "Worker.h"

#include "WorkerLoop.h"
#include "errors/Errors.h"

#include <utility>

namespace qxmix {

namespace {

// What is not the module's own work is quick; these bounds only keep the tool from waiting for
// ever on a machine that is out of order.
constexpr Milliseconds kOpenDeadline{30000};
constexpr Milliseconds kRegistryDeadline{30000};

constexpr Milliseconds kTick{100};

// Lines heard in one go: a library that never stops tracing must not keep the tool from the rest.
constexpr unsigned kMostLines = 1000;

}  // namespace

Reply ReplyWith(Calculation calculation) {
    Reply reply;
    reply.ending.kind = calculation.isEndless ? Ending::Kind::Endless : Ending::Kind::Answered;
    reply.calculation = std::move(calculation);
    return reply;
}

Worker::Worker(const OpenOrder& order, const TraceSink& trace, const WorkerJob& job)
    : child_([job](Channel& channel) { RunWorker(channel, job); }) {
    Message answer;
    const Ending ending = Exchange(ToMessage(order), kOpenDeadline, trace, answer);
    if (ending.kind == Ending::Kind::NoAnswer) {
        throw WorkError(order.library + ": no answer within 30 s while it was opened");
    }
    if (ending.kind == Ending::Kind::Crashed) {
        throw WorkError(order.library + ": crashed while it was opened: " + ending.crash);
    }
    if (KindOf(answer) == MessageKind::Broken) {
        throw WorkError(answer.bytes);
    }
    opening_ = ReadOpening(answer);
}

Reply Worker::Calculate(const MixRequest& request,
                        Milliseconds deadline,
                        const TraceSink& trace,
                        const Tick& tick) {
    CalculateOrder order;
    order.request = request;
    order.trace = trace != nullptr;
    Message answer;
    Reply reply;
    reply.ending = Exchange(ToMessage(order), deadline, trace, answer, tick);
    if (reply.ending.kind == Ending::Kind::Answered) {
        reply = ReplyWith(ReadCalculation(answer));
    }
    return reply;
}

void Worker::Start(const MixRequest& request, bool traces) {
    CalculateOrder order;
    order.request = request;
    order.trace = traces;
    // Whether the worker is gone shows when the reply is fetched.
    child_.Connection().Send(ToMessage(order));
}

void Worker::StartJob(const std::string& bytes) {
    child_.Connection().Send(ToMessage(MessageKind::Job, bytes));
}

std::optional<Reply> Worker::Finish(const TraceSink& trace) {
    Message answer;
    Channel::State state = child_.Connection().Receive(answer, Clock::now());
    for (unsigned lines = 0; state == Channel::State::Received &&
                             KindOf(answer) == MessageKind::TraceLine && lines < kMostLines;
         ++lines) {
        if (trace != nullptr) {
            trace(answer.bytes);
        }
        state = child_.Connection().Receive(answer, Clock::now());
    }
    if (state == Channel::State::Closed) {
        return Reply{Crash(), {}};
    }
    if (state == Channel::State::Waiting || KindOf(answer) == MessageKind::TraceLine) {
        return std::nullopt;
    }
    if (KindOf(answer) == MessageKind::Part || KindOf(answer) == MessageKind::Reported) {
        const bool isLast = KindOf(answer) == MessageKind::Reported;
        return Reply{{Ending::Kind::Answered, ""}, {}, std::move(answer.bytes), isLast};
    }
    return ReplyWith(ReadCalculation(answer));
}

Reply Worker::GiveUp() {
    child_.Kill();
    return {{Ending::Kind::NoAnswer, ""}, {}, ""};
}

Ending Worker::ListTypes(Catalogue& catalogue, Milliseconds deadline) {
    Message answer;
    Ending ending = Exchange(ToMessage(MessageKind::ListTypes), deadline, nullptr, answer);
    if (ending.kind == Ending::Kind::Answered) {
        catalogue = ReadCatalogue(answer);
    }
    return ending;
}

std::string Worker::SaveRegistry() {
    Message answer;
    const Ending ending =
        Exchange(ToMessage(MessageKind::SaveRegistry), kRegistryDeadline, nullptr, answer);
    return ending.kind == Ending::Kind::Answered ? answer.bytes : "";
}

Ending Worker::Exchange(const Message& order,
                        Milliseconds deadline,
                        const TraceSink& trace,
                        Message& answer,
                        const Tick& tick) {
    const Clock::time_point until = Clock::now() + deadline;
    if (!child_.Connection().Send(order)) {
        return Crash();
    }
    Channel::State state = Receive(answer, until, tick);
    while (state == Channel::State::Received && KindOf(answer) == MessageKind::TraceLine) {
        if (trace != nullptr) {
            trace(answer.bytes);
        }
        // A library that never stops tracing would otherwise keep the tool busy for ever.
        state = Clock::now() < until ? Receive(answer, until, tick) : Channel::State::Waiting;
    }
    if (state == Channel::State::Closed) {
        return Crash();
    }
    if (state == Channel::State::Waiting) {
        child_.Kill();
        return {Ending::Kind::NoAnswer, ""};
    }
    return {Ending::Kind::Answered, ""};
}

Channel::State Worker::Receive(Message& answer, Clock::time_point until, const Tick& tick) {
    const Clock::time_point start = Clock::now();
    for (Clock::time_point next = start + kTick; tick != nullptr && next < until; next += kTick) {
        const Channel::State state = child_.Connection().Receive(answer, next);
        if (state != Channel::State::Waiting) {
            return state;
        }
        tick(std::chrono::duration_cast<Milliseconds>(Clock::now() - start));
    }
    return child_.Connection().Receive(answer, until);
}

Ending Worker::Crash() {
    return {Ending::Kind::Crashed, child_.WaitForEnd()};
}

}  // namespace qxmix
