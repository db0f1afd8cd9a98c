#include "WorkerPool.h"

#include "Interrupt.h"
#include "OpenedModule.h"
#include "Waiting.h"

#include <algorithm>
#include <new>
#include <utility>

namespace qxmix {

WorkerPool::WorkerPool(OpenOrder order, std::size_t size, TraceSink trace, Job job)
    : order_(std::move(order)), trace_(std::move(trace)), job_(std::move(job)),
      memory_(size * sizeof(WorkMark)) {
    auto* const marks = static_cast<WorkMark*>(memory_.Bytes());
    for (std::size_t place = 0; place < size; ++place) {
        places_.push_back({new (marks + place) WorkMark});
    }
}

void WorkerPool::Run(const Source& source, const Sink& sink) {
    if (order_.here != nullptr) {
        RunHere(source, sink);
        return;
    }
    CatchInterrupts();
    HandOut(source);
    while (IsBusy()) {
        Wait(kNoChannelEnd, Clock::time_point::max());
        TakeReplies(sink);
        HandOut(source);
    }
}

void WorkerPool::RunHere(const Source& source, const Sink& sink) const {
    for (std::optional<Task> task = source(); task; task = source()) {
        sink(*task, order_.here->Answer(task->request, task->deadline));
    }
}

bool WorkerPool::IsBusy() const {
    return std::any_of(places_.begin(), places_.end(),
                       [](const Place& place) { return place.task.has_value(); });
}

void WorkerPool::HandOut(const Source& source) {
    for (Place& place : places_) {
        if (!place.task) {
            place.task = source();
            if (!place.task) {
                return;
            }
            Start(place);
        }
    }
}

void WorkerPool::Start(Place& place) {
    if (place.worker == nullptr) {
        Employ(place);
    }
    const bool isJob = !place.task->job.empty();
    place.item = isJob ? 0 : 1;
    place.mark->workedBefore = place.worker->WorkingTime().count();
    place.mark->item = place.item;
    place.deadline.Start(place.task->deadline, Clock::now());
    if (isJob) {
        place.worker->StartJob(place.task->job);
    } else {
        place.worker->Start(place.task->request, trace_ != nullptr);
    }
}

void WorkerPool::Employ(Place& place) {
    const auto job = [this, mark = place.mark](const std::string& bytes, const PartSink& send) {
        AtWork work(*mark, send);
        return job_(bytes, work);
    };
    place.mark->isWorn = false;
    place.worker = std::make_unique<Worker>(order_, nullptr, job);
}

bool WorkerPool::Wait(ChannelEnd other, Clock::time_point until) const {
    std::vector<ChannelEnd> ends = {other};
    for (const Place& place : places_) {
        if (place.task) {
            ends.push_back(place.worker->Descriptor());
            until = std::min(until, place.deadline.LookAgain());
        }
    }
    return WaitForOneOf(ends, until).front();
}

void WorkerPool::TakeReplies(const Sink& sink) {
    for (Place& place : places_) {
        while (place.task) {
            const std::optional<Reply> reply = ReplyOf(place);
            if (!reply) {
                break;
            }
            File(place, *reply, sink);
        }
    }
}

void WorkerPool::GiveUp(const Sink& sink) {
    for (Place& place : places_) {
        if (place.task) {
            Reply reply = place.worker->GiveUp();
            reply.item = place.mark->item;
            File(place, reply, sink);
        }
    }
}

void WorkerPool::File(Place& place, const Reply& reply, const Sink& sink) {
    if (!reply.isLast) {
        sink(*place.task, reply);
        return;
    }
    if (!reply.ending.LeavesWorker() || place.mark->isWorn) {
        place.worker.reset();
    }
    sink(*std::exchange(place.task, std::nullopt), reply);
}

std::optional<Reply> WorkerPool::ReplyOf(Place& place) {
    std::optional<Reply> reply = place.worker->Finish(trace_);
    const Clock::time_point now = Clock::now();
    if (reply && !reply->ending.LeavesWorker()) {
        reply->item = place.mark->item;
    } else if (!reply && now >= place.deadline.LookAgain() && HasMissed(place, now)) {
        reply = place.worker->GiveUp();
        reply->item = place.item;  // by now it may be done with it
    }
    return reply;
}

bool WorkerPool::HasMissed(Place& place, Clock::time_point now) {
    const std::uint64_t item = place.mark->item;
    const std::chrono::nanoseconds worked =
        place.worker->WorkingTime() - std::chrono::nanoseconds(place.mark->workedBefore.load());
    const bool isOfItem = item == place.mark->item;  // else the time is that of the next
    if (item == 0 || item != place.item) {
        place.item = item;
        place.deadline.Start(place.task->deadline, now);
    }
    return item != 0 && isOfItem && place.deadline.IsMissed(worked, now);
}

}  // namespace qxmix
