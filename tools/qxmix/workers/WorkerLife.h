#pragma once

#include "Channel.h"
#include "Worker.h"
#include "module/ModuleLibrary.h"

#include <memory>

namespace qxmix {

/// A worker between two orders: the library that its first one names, open in this process.
class WorkerLife {
public:
    /// @param channel  takes the answers; outlives the object.
    /// @param job      carries out orders of the caller's own; empty: there are none.
    WorkerLife(Channel& channel, WorkerJob job) : channel_(channel), job_(std::move(job)) {}

    /// Carries out an order and sends the answer, trace lines before it.
    ///
    /// @return false when this was the last: the library cannot be used, or the other end is gone.
    bool CarryOut(const Message& order);

private:
    bool Open(const Message& order);
    Message AnswerTo(const Message& order);

    Channel& channel_;
    WorkerJob job_;
    std::unique_ptr<ModuleLibrary> library_;  // null until the first order
};

}  // namespace qxmix
