#pragma once

#include "Worker.h"

#include <chrono>

namespace qxmix {

/// Whether the work that somebody else does has missed its deadline.
///
/// A deadline counts processor time, so that a busy machine does not make misses; ten times as long
/// has to do in any case.
class WorkDeadline {
public:
    /// The work begins, with a deadline of its own.
    void Start(Milliseconds deadline, Clock::time_point now);

    /// @param worked  processor time of the work so far.
    /// @param now     LookAgain or later; nothing is missed before.
    bool IsMissed(std::chrono::nanoseconds worked, Clock::time_point now);

    /// When there may be something to see, not before.
    Clock::time_point LookAgain() const { return lookAgain_; }

private:
    Milliseconds deadline_{0};
    Clock::time_point last_;
    Clock::time_point lookAgain_;
};

}  // namespace qxmix
