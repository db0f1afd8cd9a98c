#include "Terminal.h"

#include "Characters.h"
#include "Console.h"

#include <algorithm>
#include <cstdlib>

namespace qxmix {

namespace {

bool IsSet(const char* variable) {
    const char* const value = std::getenv(variable);
    return value != nullptr && *value != '\0';
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
    for (std::size_t at = 0; at < text.size();) {
        const Character character = CharacterAt(text, at);
        printable += character.Moves() ? "?" : text.substr(at, character.size);
        at += character.size;
    }
    return printable;
}

std::size_t ColumnsOf(const std::string& utf8) {
    std::size_t columns = 0;
    for (std::size_t at = 0; at < utf8.size();) {
        const Character character = CharacterAt(utf8, at);
        columns += character.Columns();
        at += character.size;
    }
    return columns;
}

std::string CutToColumns(const std::string& utf8, std::size_t columns) {
    std::size_t at = 0;
    for (std::size_t column = 0; at < utf8.size();) {
        const Character character = CharacterAt(utf8, at);
        column += character.Columns();
        if (column > columns) {
            break;
        }
        at += character.size;
    }
    return utf8.substr(0, at);
}

}  // namespace qxmix
