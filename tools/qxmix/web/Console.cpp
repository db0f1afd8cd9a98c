#include "terminal/Console.h"

namespace qxmix {

// A page is no terminal.

bool HasColorTerminal() {
    return false;
}

std::size_t TerminalColumns() {
    return 0;
}

std::size_t ErrorColumns() {
    return 0;
}

}  // namespace qxmix
