#include "PollTime.h"
#include "errors/Errors.h"
#include "workers/Channel.h"
#include "workers/Interrupt.h"

#include <cerrno>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace qxmix {

Channel::~Channel() {
    if (end_ != kNoChannelEnd) {
        close(end_);
    }
}

bool Channel::WriteAll(const std::string& bytes) {
    std::size_t sent = 0;
    while (sent < bytes.size()) {
        const ssize_t more = send(end_, bytes.data() + sent, bytes.size() - sent, MSG_NOSIGNAL);
        if (more < 0 && errno != EINTR) {
            return false;
        }
        sent += more < 0 ? 0 : static_cast<std::size_t>(more);
    }
    return true;
}

Channel::State Channel::ReadSome(std::optional<Clock::time_point> until) {
    pollfd waiting[] = {{end_, POLLIN, 0}, {InterruptDescriptor(), POLLIN, 0}};
    const int ready = poll(waiting, 2, MillisecondsUntil(until));
    if (ready > 0 && waiting[1].revents != 0) {
        throw Interruption();
    }
    if (ready == 0) {
        return State::Waiting;
    }
    char block[8192];
    const ssize_t size = ready < 0 ? -1 : recv(end_, block, sizeof(block), 0);
    if (size < 0) {
        return errno == EINTR || errno == EAGAIN ? State::Received : State::Closed;
    }
    received_.append(block, static_cast<std::size_t>(size));
    return size > 0 ? State::Received : State::Closed;
}

}  // namespace qxmix
