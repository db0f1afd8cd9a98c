#include "workers/WorkerPool.h"

namespace qxmix {

void WorkerPool::Wait() const {
    // An answer is there as soon as its question was sent.
}

}  // namespace qxmix
