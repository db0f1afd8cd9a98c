#include "Terminal.h"

#include "Console.h"

#include <algorithm>
#include <cstdlib>

namespace qxmix {

namespace {

bool IsSet(const char* variable) {
    const char* const value = std::getenv(variable);
    return value != nullptr && *value != '\0';
}

bool ContinuesCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// C0 and DEL; the C1 controls are the two-byte characters C2 80 to C2 9F.
bool IsControlAt(const std::string& text, std::size_t at) {
    const auto byte = static_cast<unsigned char>(text[at]);
    const auto next = static_cast<unsigned char>(at + 1 < text.size() ? text[at + 1] : 0);
    return byte < 0x20U || byte == 0x7FU || (byte == 0xC2U && next >= 0x80U && next <= 0x9FU);
}

}  // namespace

std::size_t OutputWidth() {
    return std::max(TerminalColumns(), kPlainWidth);
}

Painter::Painter(ColorMode mode)
    : isOn_(mode == ColorMode::Always ||
            (mode == ColorMode::Auto && !IsSet("NO_COLOR") && HasColorTerminal())) {
}

std::string Painter::Paint(const std::string& text, const std::string& style) const {
    return isOn_ && !style.empty() ? "\x1b[" + style + "m" + text + "\x1b[0m" : text;
}

std::string Printable(const std::string& text) {
    std::string printable;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (!IsControlAt(text, at)) {
            printable += text[at];
            continue;
        }
        printable += '?';
        at += static_cast<unsigned char>(text[at]) == 0xC2U ? 1 : 0;
    }
    return printable;
}

std::size_t ColumnsOf(const std::string& utf8) {
    return utf8.size() -
           static_cast<std::size_t>(std::count_if(utf8.begin(), utf8.end(), &ContinuesCharacter));
}

std::string CutToColumns(const std::string& utf8, std::size_t columns) {
    std::size_t at = 0;
    for (std::size_t column = 0; at < utf8.size(); ++at) {
        column += ContinuesCharacter(utf8[at]) ? 0 : 1;
        if (column > columns) {
            break;
        }
    }
    return utf8.substr(0, at);
}

}  // namespace qxmix
