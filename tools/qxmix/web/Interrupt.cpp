#include "workers/Interrupt.h"

namespace qxmix {

// Nobody presses Ctrl-C in a page; who wants no answer any more ends the whole tool.

void CatchInterrupts() {
}

void TakeInterrupt() {
}

int InterruptDescriptor() {
    return -1;
}

void IgnoreInterrupts() {
}

}  // namespace qxmix
