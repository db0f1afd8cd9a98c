#include "terminal/Console.h"

#include "terminal/Terminal.h"

#include <cstdlib>
#include <cstring>
#include <sys/ioctl.h>
#include <unistd.h>

namespace qxmix {

namespace {

bool IsDumb() {
    const char* const terminal = std::getenv("TERM");
    return terminal != nullptr && std::strcmp(terminal, "dumb") == 0;
}

/// Columns of the terminal behind a stream; 0: there is none, or nobody knows.
std::size_t ColumnsOfTerminal(int stream) {
    winsize size{};
    const bool isKnown = isatty(stream) == 1 && ioctl(stream, TIOCGWINSZ, &size) == 0;
    return isKnown ? size.ws_col : 0;
}

}  // namespace

bool HasColorTerminal() {
    return isatty(STDOUT_FILENO) == 1 && !IsDumb();
}

std::size_t TerminalColumns() {
    return ColumnsOfTerminal(STDOUT_FILENO);
}

std::size_t ErrorColumns() {
    if (isatty(STDERR_FILENO) != 1 || std::getenv("TERM") == nullptr || IsDumb()) {
        return 0;
    }
    const std::size_t columns = ColumnsOfTerminal(STDERR_FILENO);
    return columns > 1 ? columns : kPlainWidth;
}

}  // namespace qxmix
