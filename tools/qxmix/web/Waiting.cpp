#include "workers/Waiting.h"

namespace qxmix {

std::vector<bool> WaitForOneOf(const std::vector<ChannelEnd>& ends, Clock::time_point) {
    // An answer is there as soon as its question was sent.
    return std::vector<bool>(ends.size(), true);
}

}  // namespace qxmix
