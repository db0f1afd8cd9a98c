#pragma once

#include "Worker.h"

namespace qxmix {

/// Ends this process when a call in it takes longer than its deadline: for a process whose work
/// somebody else does again. A deadline counts processor time; ten times as long has to do in any
/// case. There is one watch at a time.
class CallWatch {
public:
    CallWatch();
    CallWatch(const CallWatch&) = delete;
    CallWatch& operator=(const CallWatch&) = delete;
    ~CallWatch();

    /// Before each call.
    void Begin(Milliseconds deadline);

    /// After each call.
    ///
    /// @param took  its processor time.
    void End(std::chrono::nanoseconds took);
};

}  // namespace qxmix
