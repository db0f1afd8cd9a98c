#include "terminal/Console.h"

#include "WindowsApi.h"

namespace qxmix {

bool HasColorTerminal() {
    const HANDLE console = GetStdHandle(STD_OUTPUT_HANDLE);
    DWORD mode = 0;
    return GetConsoleMode(console, &mode) != 0 &&
           SetConsoleMode(console, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

std::size_t TerminalColumns() {
    CONSOLE_SCREEN_BUFFER_INFO screen{};
    const bool isKnown =
        GetConsoleScreenBufferInfo(GetStdHandle(STD_OUTPUT_HANDLE), &screen) != 0 &&
        screen.srWindow.Right >= screen.srWindow.Left;
    return isKnown ? static_cast<std::size_t>(screen.srWindow.Right - screen.srWindow.Left + 1) : 0;
}

}  // namespace qxmix
