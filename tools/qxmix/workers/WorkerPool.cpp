#include "WorkerPool.h"

#include "Interrupt.h"
#include "OpenedModule.h"
#include "Waiting.h"
#include "errors/Errors.h"

#include <algorithm>
#include <utility>

namespace qxmix {

namespace {

/// Jobs after which a worker is replaced: what they open the module does not give back whole.
constexpr std::size_t kMostJobs = 256;

}  // namespace

WorkerPool::WorkerPool(OpenOrder order, std::size_t size, TraceSink trace, Job job)
    : order_(std::move(order)), trace_(std::move(trace)), job_(std::move(job)), places_(size) {
}

void WorkerPool::Run(const Source& source, const Sink& sink) {
    if (order_.here != nullptr) {
        RunHere(source, sink);
        return;
    }
    CatchInterrupts();
    std::size_t busy = 0;
    for (Place& place : places_) {
        busy += StartNext(place, source) ? 1U : 0U;
    }
    while (busy > 0) {
        Wait();
        for (Place& place : places_) {
            if (place.task && !GoOn(place, source, sink)) {
                --busy;
            }
        }
    }
}

bool WorkerPool::GoOn(Place& place, const Source& source, const Sink& sink) {
    const std::optional<Reply> reply = ReplyOf(place, Clock::now());
    if (!reply) {
        return true;
    }
    if (!reply->ending.LeavesWorker() || place.jobs >= kMostJobs) {
        place.worker.reset();
    }
    sink(*std::exchange(place.task, std::nullopt), *reply);
    return StartNext(place, source);
}

void WorkerPool::RunHere(const Source& source, const Sink& sink) const {
    for (std::optional<Task> task = source(); task; task = source()) {
        sink(*task, order_.here->Answer(task->request, task->deadline));
    }
}

bool WorkerPool::StartNext(Place& place, const Source& source) {
    place.task = source();
    if (!place.task) {
        return false;
    }
    if (place.worker == nullptr) {
        place.worker = std::make_unique<Worker>(order_, nullptr, job_);
        place.jobs = 0;
    }
    place.workingTimeBefore = place.worker->WorkingTime();
    place.deadline.Start(place.task->deadline, Clock::now());
    if (place.task->job.empty()) {
        place.worker->Start(place.task->request, trace_ != nullptr);
    } else {
        place.worker->StartJob(place.task->job);
        ++place.jobs;
    }
    return true;
}

void WorkerPool::Wait() const {
    std::vector<ChannelEnd> busy;
    Clock::time_point first = Clock::time_point::max();
    for (const Place& place : places_) {
        if (place.task) {
            busy.push_back(place.worker->Descriptor());
            first = std::min(first, place.deadline.LookAgain());
        }
    }
    WaitForOneOf(busy, first);
}

std::optional<Reply> WorkerPool::ReplyOf(Place& place, Clock::time_point now) {
    std::optional<Reply> reply = place.worker->Finish(trace_);
    if (!reply && now >= place.deadline.LookAgain() &&
        place.deadline.IsMissed(place.worker->WorkingTime() - place.workingTimeBefore, now)) {
        reply = place.worker->GiveUp();
    }
    return reply;
}

}  // namespace qxmix
