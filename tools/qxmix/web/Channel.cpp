#include "workers/Channel.h"

#include "InPlaceWorker.h"

#include <utility>

namespace qxmix {

Channel::Channel(Channel&& other) noexcept : end_(std::exchange(other.end_, kNoChannelEnd)) {
}

Channel& Channel::operator=(Channel&& other) noexcept {
    std::swap(end_, other.end_);
    std::swap(received_, other.received_);
    std::swap(taken_, other.taken_);
    return *this;
}

Channel::~Channel() = default;

bool Channel::Send(const Message& message) {
    return end_->Take(message);
}

Channel::State Channel::Receive(Message& message, std::optional<Clock::time_point>) {
    return end_->Give(message);
}

}  // namespace qxmix
