#include "workers/WorkerLoop.h"

#include "InPlaceWorker.h"

namespace qxmix {

/// Its orders come later, each by a call.
void RunWorker(Channel& channel, const WorkerJob& job) {
    channel.Descriptor()->Employ(job);
}

}  // namespace qxmix
