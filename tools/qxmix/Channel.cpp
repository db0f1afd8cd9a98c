#include "Channel.h"

#include "Errors.h"
#include "Interrupt.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace qxmix {

namespace {

/// Before the bytes of each message: its kind and their number.
constexpr std::size_t kHeaderSize = 1 + sizeof(std::uint32_t);

/// Time left, rounded up, in the unit of poll; -1 for no end.
int MillisecondsUntil(std::optional<Clock::time_point> until) {
    if (!until) {
        return -1;
    }
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(*until - Clock::now()).count();
    return static_cast<int>(std::clamp<std::int64_t>(left, 0, INT32_MAX));
}

}  // namespace

Channel::Channel(Channel&& other) noexcept
    : descriptor_(std::exchange(other.descriptor_, -1)), received_(std::move(other.received_)),
      taken_(other.taken_) {
}

Channel& Channel::operator=(Channel&& other) noexcept {
    std::swap(descriptor_, other.descriptor_);
    std::swap(received_, other.received_);
    std::swap(taken_, other.taken_);
    return *this;
}

Channel::~Channel() {
    if (descriptor_ >= 0) {
        close(descriptor_);
    }
}

bool Channel::Send(const Message& message) {
    std::string bytes(1, static_cast<char>(message.kind));
    const auto size = static_cast<std::uint32_t>(message.bytes.size());
    bytes.append(reinterpret_cast<const char*>(&size), sizeof(size));
    bytes += message.bytes;
    std::size_t sent = 0;
    while (sent < bytes.size()) {
        const ssize_t more =
            send(descriptor_, bytes.data() + sent, bytes.size() - sent, MSG_NOSIGNAL);
        if (more < 0 && errno != EINTR) {
            return false;
        }
        sent += more < 0 ? 0 : static_cast<std::size_t>(more);
    }
    return true;
}

Channel::State Channel::Receive(Message& message, std::optional<Clock::time_point> until) {
    while (!TakeWhole(message)) {
        pollfd waiting[] = {{descriptor_, POLLIN, 0}, {InterruptDescriptor(), POLLIN, 0}};
        const int ready = poll(waiting, 2, MillisecondsUntil(until));
        if (ready > 0 && waiting[1].revents != 0) {
            throw Interruption();
        }
        if (ready > 0 && !ReadSome()) {
            return State::Closed;
        }
        if (ready == 0) {
            return State::Waiting;
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

bool Channel::ReadSome() {
    char block[8192];
    const ssize_t size = recv(descriptor_, block, sizeof(block), 0);
    if (size < 0) {
        return errno == EINTR || errno == EAGAIN;
    }
    received_.append(block, static_cast<std::size_t>(size));
    return size > 0;
}

}  // namespace qxmix
