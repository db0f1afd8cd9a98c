#include "WorkerLoop.h"

#include "WorkerLife.h"

namespace qxmix {

void RunWorker(Channel& channel, const WorkerJob& job) {
    WorkerLife life(channel, job);
    Message order;
    while (channel.Receive(order, std::nullopt) == Channel::State::Received &&
           life.CarryOut(order)) {
    }
}

}  // namespace qxmix
