#include "Progress.h"

#include "Terminal.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sys/ioctl.h>
#include <unistd.h>
#include <utility>

namespace qxmix {

namespace {

constexpr std::chrono::milliseconds kFirst{500};
constexpr std::chrono::milliseconds kBetween{200};
constexpr std::uint64_t kMillisecondsInSecond = 1000;

/// Columns of a line that can be written over at the terminal on standard error; 0: there is none.
std::size_t LineWidth() {
    const char* const terminal = std::getenv("TERM");
    if (isatty(STDERR_FILENO) != 1 || terminal == nullptr || std::strcmp(terminal, "dumb") == 0) {
        return 0;
    }
    winsize size{};
    const bool isKnown = ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 1;
    // A line that fills the last column would go on in the next one, where no wiping reaches it.
    return (isKnown ? size.ws_col : kPlainWidth) - 1;
}

void WriteError(const std::string& text) {
    std::fputs(text.c_str(), stderr);
    std::fflush(stderr);
}

}  // namespace

Progress::Progress(std::string command, std::uint64_t total, bool isQuiet)
    : command_(std::move(command)), total_(total), isOn_(!isQuiet && LineWidth() > 0),
      start_(Clock::now()), next_(start_ + kFirst) {
}

void Progress::Wipe() {
    if (std::exchange(isShown_, false)) {
        WriteError("\r\x1b[K");
    }
}

void Progress::Show(const WorkProgress& work) {
    if (!isOn_ || Clock::now() < next_) {
        return;
    }
    const Clock::time_point now = Clock::now();
    next_ = now + kBetween;
    isShown_ = true;
    const auto passed = std::chrono::duration_cast<std::chrono::milliseconds>(now - start_);
    const std::string text = ProgressText(command_, work, total_, passed);
    WriteError("\r" + CutToColumns(text, LineWidth()) + "\x1b[K");
}

std::string ProgressText(const std::string& command,
                         const WorkProgress& work,
                         std::uint64_t total,
                         std::chrono::milliseconds passed) {
    const auto time = static_cast<std::uint64_t>(std::max<std::int64_t>(passed.count(), 1));
    const std::uint64_t speed = work.done * kMillisecondsInSecond / time;
    std::string text = command + "  " + std::to_string(total == 0 ? 100 : work.done * 100 / total) +
                       "%  " + std::to_string(work.done) + "/" + std::to_string(total) + "  " +
                       std::to_string(speed) + "/s";
    if (speed > 0) {
        text += "  " + std::to_string((total - work.done + speed - 1) / speed) + " s left";
    }
    return text + (work.misses > 0 ? "  (X " + std::to_string(work.misses) + ")" : "");
}

}  // namespace qxmix
