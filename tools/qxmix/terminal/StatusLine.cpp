#include "StatusLine.h"

#include "Console.h"
#include "Terminal.h"

#include <cstdio>
#include <utility>

namespace qxmix {

namespace {

constexpr std::chrono::milliseconds kFirst{500};
constexpr std::chrono::milliseconds kBetween{200};

void WriteError(const std::string& text) {
    std::fputs(text.c_str(), stderr);
    std::fflush(stderr);
}

}  // namespace

StatusLine::StatusLine(bool isQuiet)
    : isOn_(!isQuiet && ErrorColumns() > 0), start_(Clock::now()), next_(start_ + kFirst) {
}

void StatusLine::Show(const std::string& text) {
    next_ = Clock::now() + kBetween;
    isShown_ = true;
    // A line that fills the last column would go on in the next one, where no wiping reaches it.
    WriteError("\r" + CutToColumns(text, ErrorColumns() - 1) + "\x1b[K");
}

void StatusLine::Wipe() {
    if (std::exchange(isShown_, false)) {
        WriteError("\r\x1b[K");
    }
}

}  // namespace qxmix
