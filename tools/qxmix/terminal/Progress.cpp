#include "Progress.h"

#include <algorithm>
#include <cstdio>
#include <unistd.h>
#include <utility>

namespace qxmix {

namespace {

constexpr std::chrono::milliseconds kFirst{500};
constexpr std::chrono::milliseconds kBetween{200};
constexpr std::uint64_t kMillisecondsInSecond = 1000;

void WriteError(const std::string& text) {
    std::fputs(text.c_str(), stderr);
    std::fflush(stderr);
}

}  // namespace

Progress::Progress(std::string command, std::uint64_t total, bool isQuiet)
    : command_(std::move(command)), total_(total), isOn_(!isQuiet && isatty(STDERR_FILENO) == 1),
      start_(Clock::now()), next_(start_ + kFirst) {
}

void Progress::Wipe() {
    if (std::exchange(isShown_, false)) {
        WriteError("\r\x1b[K");
    }
}

void Progress::Show(std::uint64_t done, std::uint64_t misses) {
    if (!isOn_ || Clock::now() < next_) {
        return;
    }
    const Clock::time_point now = Clock::now();
    next_ = now + kBetween;
    isShown_ = true;
    const auto passed = std::chrono::duration_cast<std::chrono::milliseconds>(now - start_);
    WriteError("\r" + ProgressText(command_, done, total_, misses, passed) + "\x1b[K");
}

std::string ProgressText(const std::string& command,
                         std::uint64_t done,
                         std::uint64_t total,
                         std::uint64_t misses,
                         std::chrono::milliseconds passed) {
    const auto time = static_cast<std::uint64_t>(std::max<std::int64_t>(passed.count(), 1));
    const std::uint64_t speed = done * kMillisecondsInSecond / time;
    std::string text = command + "  " + std::to_string(total == 0 ? 100 : done * 100 / total) +
                       "%  " + std::to_string(done) + "/" + std::to_string(total) + "  " +
                       std::to_string(speed) + "/s";
    if (speed > 0) {
        text += "  " + std::to_string((total - done + speed - 1) / speed) + " s left";
    }
    return text + (misses > 0 ? "  (X " + std::to_string(misses) + ")" : "");
}

}  // namespace qxmix
