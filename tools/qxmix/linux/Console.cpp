#include "terminal/Console.h"

#include <cstdlib>
#include <cstring>
#include <sys/ioctl.h>
#include <unistd.h>

namespace qxmix {

bool HasColorTerminal() {
    const char* const terminal = std::getenv("TERM");
    const bool isDumb = terminal != nullptr && std::strcmp(terminal, "dumb") == 0;
    return isatty(STDOUT_FILENO) == 1 && !isDumb;
}

std::size_t TerminalColumns() {
    winsize size{};
    const bool isKnown = isatty(STDOUT_FILENO) == 1 && ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0;
    return isKnown ? size.ws_col : 0;
}

}  // namespace qxmix
