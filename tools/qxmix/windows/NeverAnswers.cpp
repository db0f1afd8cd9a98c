#include "module/NeverAnswers.h"

namespace qxmix {

// The module's own operations are not part of this tool: the library is called, with a deadline.
CallEnding DecideEnding(const MixRequest&, std::uint32_t) {
    return CallEnding::Unknown;
}

bool NeverAnswers(const MixRequest&, std::uint32_t) {
    return false;
}

void LeaveAsEndlessCall(const MixRequest&, std::uint32_t) {
}

}  // namespace qxmix
