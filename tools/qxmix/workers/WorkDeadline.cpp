#include "WorkDeadline.h"

#include "LastShare.h"

#include <algorithm>

namespace qxmix {

void WorkDeadline::Start(Milliseconds deadline, Clock::time_point now) {
    deadline_ = deadline;
    last_ = now + deadline * kLastShare;
    lookAgain_ = now + deadline;
}

bool WorkDeadline::IsMissed(std::chrono::nanoseconds worked, Clock::time_point now) {
    const auto left = std::chrono::ceil<Milliseconds>(deadline_ - worked);
    if (left.count() <= 0 || now >= last_) {
        return true;
    }
    lookAgain_ = std::min(now + left, last_);
    return false;
}

}  // namespace qxmix
