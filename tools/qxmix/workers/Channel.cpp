#include "Channel.h"

#include <cstring>
#include <utility>

namespace qxmix {

namespace {

/// Before the bytes of each message: its kind and their number.
constexpr std::size_t kHeaderSize = 1 + sizeof(std::uint32_t);

}  // namespace

Channel::Channel(Channel&& other) noexcept
    : end_(std::exchange(other.end_, kNoChannelEnd)), received_(std::move(other.received_)),
      taken_(other.taken_) {
}

Channel& Channel::operator=(Channel&& other) noexcept {
    std::swap(end_, other.end_);
    std::swap(received_, other.received_);
    std::swap(taken_, other.taken_);
    return *this;
}

bool Channel::Send(const Message& message) {
    std::string bytes(1, static_cast<char>(message.kind));
    const auto size = static_cast<std::uint32_t>(message.bytes.size());
    bytes.append(reinterpret_cast<const char*>(&size), sizeof(size));
    bytes += message.bytes;
    return WriteAll(bytes);
}

Channel::State Channel::Receive(Message& message, std::optional<Clock::time_point> until) {
    while (!TakeWhole(message)) {
        const State state = ReadSome(until);
        if (state != State::Received) {
            return state;
        }
    }
    return State::Received;
}

bool Channel::TakeWhole(Message& message) {
    const std::size_t there = received_.size() - taken_;
    if (there < kHeaderSize) {
        return false;
    }
    std::uint32_t size = 0;
    std::memcpy(&size, received_.data() + taken_ + 1, sizeof(size));
    if (there - kHeaderSize < size) {
        return false;
    }
    message.kind = static_cast<std::uint8_t>(received_[taken_]);
    message.bytes.assign(received_, taken_ + kHeaderSize, size);
    taken_ += kHeaderSize + size;
    if (taken_ == received_.size()) {
        received_.clear();
        taken_ = 0;
    }
    return true;
}

}  // namespace qxmix
