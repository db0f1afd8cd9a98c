#pragma once

#include "workers/Channel.h"

#include <algorithm>
#include <optional>

namespace qxmix {

/// Time left, rounded up, in the unit of poll; -1 for no end.
inline int MillisecondsUntil(std::optional<Clock::time_point> until) {
    if (!until) {
        return -1;
    }
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(*until - Clock::now()).count();
    return static_cast<int>(std::clamp<std::int64_t>(left, 0, INT32_MAX));
}

}  // namespace qxmix
