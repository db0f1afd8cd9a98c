#pragma once

#include "Channel.h"
#include "Worker.h"

namespace qxmix {

/// The life of a worker: opens the library that its first order names, then carries out one order
/// after the other until the other end is gone.
///
/// The stand-in of the terminal's system is this process's own: what the library reads and writes
/// there is nobody else's.
///
/// @param job  carries out orders of the caller's own; empty: there are none.
void RunWorker(Channel& channel, const WorkerJob& job = nullptr);

}  // namespace qxmix
