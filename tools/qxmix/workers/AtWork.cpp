#include "AtWork.h"

#include <ctime>

namespace qxmix {

void AtWork::Begin(std::uint64_t item) {
    timespec worked{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &worked);
    mark_.workedBefore = std::int64_t{worked.tv_sec} * 1000000000 + worked.tv_nsec;
    mark_.item = item;
}

}  // namespace qxmix
