#include "InPlaceWorker.h"

#include "PageWatch.h"
#include "workers/WorkerMessages.h"

#include <exception>
#include <utility>

namespace qxmix {

InPlaceWorker::InPlaceWorker() : channel_(this), start_(Clock::now()) {
}

void InPlaceWorker::Employ(const WorkerJob& job) {
    life_ = std::make_unique<WorkerLife>(channel_, job);
}

bool InPlaceWorker::Take(const Message& message) {
    if (isWorking_) {
        answers_.push_back(message);
        return true;
    }
    if (life_ == nullptr) {
        return false;
    }
    // Of a calculation that takes too long nothing is ever received.
    if (KindOf(message) != MessageKind::Calculate || TellPageOfCalculation()) {
        CarryOut(message);
    }
    return true;
}

void InPlaceWorker::CarryOut(const Message& order) {
    bool goesOn = false;
    isWorking_ = true;
    try {
        goesOn = life_->CarryOut(order);
    } catch (const std::exception&) {
        // It ends as a process would that is left by an exception.
    }
    isWorking_ = false;
    if (!goesOn) {
        End();
    }
}

Channel::State InPlaceWorker::Give(Message& message) {
    if (answers_.empty()) {
        return life_ == nullptr ? Channel::State::Closed : Channel::State::Waiting;
    }
    message = std::move(answers_.front());
    answers_.pop_front();
    return Channel::State::Received;
}

}  // namespace qxmix
