#pragma once

#include "workers/Channel.h"
#include "workers/WorkerLife.h"

#include <chrono>
#include <deque>
#include <memory>

namespace qxmix {

/// A worker that carries out each order while it is sent; its answers wait to be received.
class InPlaceWorker {
public:
    InPlaceWorker();

    /// Its own end; nothing comes there to wait for.
    Channel& Connection() { return channel_; }

    /// From now on it carries out orders.
    void Employ(const WorkerJob& job);

    /// What one end sends: an order of the tool's, or an answer while an order is carried out.
    ///
    /// @return false when nobody works here any more.
    bool Take(const Message& message);

    Channel::State Give(Message& message);

    /// Time since it was made: nobody else works in its thread.
    std::chrono::nanoseconds WorkingTime() const { return Clock::now() - start_; }

    void End() { life_.reset(); }

private:
    void CarryOut(const Message& order);

    std::deque<Message> answers_;
    Channel channel_;
    std::unique_ptr<WorkerLife> life_;
    bool isWorking_ = false;
    Clock::time_point start_;
};

}  // namespace qxmix
