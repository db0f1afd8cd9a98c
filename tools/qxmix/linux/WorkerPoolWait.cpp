#include "PollTime.h"
#include "errors/Errors.h"
#include "workers/Interrupt.h"
#include "workers/WorkerPool.h"

#include <algorithm>
#include <poll.h>

namespace qxmix {

void WorkerPool::Wait() const {
    std::vector<pollfd> waiting = {{InterruptDescriptor(), POLLIN, 0}};
    Clock::time_point first = Clock::time_point::max();
    for (const Place& place : places_) {
        if (place.task) {
            waiting.push_back({place.worker->Descriptor(), POLLIN, 0});
            first = std::min(first, place.lookAgain);
        }
    }
    const int ready = poll(waiting.data(), waiting.size(), MillisecondsUntil(first));
    if (ready > 0 && waiting.front().revents != 0) {
        throw Interruption();
    }
}

}  // namespace qxmix
