#pragma once

namespace qxmix {

/// Set once Ctrl-C was pressed; null before CatchInterrupts.
void* InterruptEvent();

}  // namespace qxmix
