#include "Desk.h"

#include "errors/Errors.h"

namespace qxmix {

bool WorkOff(Desk& desk,
             const OpenOrder& order,
             std::size_t jobs,
             const TraceSink& trace,
             const ProgressListener& listen,
             const Job& job) {
    // Lines of several workers would be all mixed up.
    WorkerPool pool(order, trace == nullptr ? jobs : 1, trace, job);
    try {
        pool.Run([&desk] { return desk.NextTask(); },
                 [&desk, &listen](const WorkerPool::Task& task, const Reply& reply) {
                     desk.Take(task, reply);
                     listen(desk.Progress());
                 });
    } catch (const Interruption&) {
        return false;
    }
    return true;
}

}  // namespace qxmix
