#include "terminal/Console.h"

#include "WindowsApi.h"

namespace qxmix {

namespace {

/// Whether a stream is a console that understands sequences, from now on.
bool TakesSequences(DWORD stream) {
    const HANDLE console = GetStdHandle(stream);
    DWORD mode = 0;
    return GetConsoleMode(console, &mode) != 0 &&
           SetConsoleMode(console, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

/// Columns of the console behind a stream; 0: there is none.
std::size_t ColumnsOfConsole(DWORD stream) {
    CONSOLE_SCREEN_BUFFER_INFO screen{};
    const bool isKnown = GetConsoleScreenBufferInfo(GetStdHandle(stream), &screen) != 0 &&
                         screen.srWindow.Right >= screen.srWindow.Left;
    return isKnown ? static_cast<std::size_t>(screen.srWindow.Right - screen.srWindow.Left + 1) : 0;
}

}  // namespace

bool HasColorTerminal() {
    return TakesSequences(STD_OUTPUT_HANDLE);
}

std::size_t TerminalColumns() {
    return ColumnsOfConsole(STD_OUTPUT_HANDLE);
}

std::size_t ErrorColumns() {
    return TakesSequences(STD_ERROR_HANDLE) ? ColumnsOfConsole(STD_ERROR_HANDLE) : 0;
}

}  // namespace qxmix
