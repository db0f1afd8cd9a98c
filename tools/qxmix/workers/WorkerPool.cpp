#include "WorkerPool.h"

#include "Interrupt.h"
#include "LastShare.h"
#include "OpenedModule.h"
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
            const std::optional<Reply> reply =
                place.task ? ReplyOf(place, Clock::now()) : std::nullopt;
            if (!reply) {
                continue;
            }
            const bool isWorn = place.jobs >= kMostJobs;
            if (!reply->ending.LeavesWorker() || isWorn) {
                place.worker.reset();
            }
            sink(*std::exchange(place.task, std::nullopt), *reply);
            busy -= StartNext(place, source) ? 0U : 1U;
        }
    }
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
    place.lookAgain = Clock::now() + place.task->deadline;
    place.last = Clock::now() + place.task->deadline * kLastShare;
    if (place.task->job.empty()) {
        place.worker->Start(place.task->request, trace_ != nullptr);
    } else {
        place.worker->StartJob(place.task->job);
        ++place.jobs;
    }
    return true;
}

std::optional<Reply> WorkerPool::ReplyOf(Place& place, Clock::time_point now) {
    std::optional<Reply> reply = place.worker->Finish(trace_);
    if (reply || now < place.lookAgain) {
        return reply;
    }
    const auto worked = place.worker->WorkingTime() - place.workingTimeBefore;
    const auto left = std::chrono::ceil<Milliseconds>(place.task->deadline - worked);
    if (left.count() <= 0 || now >= place.last) {
        return place.worker->GiveUp();
    }
    place.lookAgain = std::min(now + left, place.last);
    return std::nullopt;
}

}  // namespace qxmix
