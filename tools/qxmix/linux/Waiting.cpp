#include "workers/Waiting.h"

#include "PollTime.h"
#include "errors/Errors.h"
#include "workers/Interrupt.h"

#include <poll.h>

namespace qxmix {

std::vector<bool> WaitForOneOf(const std::vector<ChannelEnd>& ends, Clock::time_point until) {
    std::vector<pollfd> waiting;
    for (const ChannelEnd end : ends) {
        waiting.push_back({end, POLLIN, 0});
    }
    waiting.push_back({InterruptDescriptor(), POLLIN, 0});
    const bool isEndless = until == Clock::time_point::max();
    const int ready = poll(waiting.data(), waiting.size(),
                           MillisecondsUntil(isEndless ? std::nullopt : std::optional(until)));
    if (ready > 0 && waiting.back().revents != 0) {
        throw Interruption();
    }
    waiting.pop_back();
    std::vector<bool> isReady;
    for (const pollfd& end : waiting) {
        isReady.push_back(ready > 0 && end.revents != 0);
    }
    return isReady;
}

}  // namespace qxmix
