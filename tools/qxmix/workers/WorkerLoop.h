#pragma once

#include "Channel.h"

namespace qxmix {

/// The life of a worker: opens the library that its first order names, then carries out one order
/// after the other until the other end is gone.
///
/// The stand-in of the terminal's system is this process's own: what the library reads and writes
/// there is nobody else's.
void RunWorker(Channel& channel);

}  // namespace qxmix
