#include "Progress.h"

#include <algorithm>
#include <utility>

namespace qxmix {

namespace {

constexpr std::uint64_t kSecond = 1000;  // in milliseconds

}  // namespace

Progress::Progress(std::string command, std::optional<std::uint64_t> total, bool isQuiet)
    : command_(std::move(command)), total_(total), line_(isQuiet) {
}

void Progress::Show(const WorkProgress& work) {
    if (line_.IsDue()) {
        line_.Show(ProgressText(command_, work, total_, line_.Passed()));
    }
}

std::string ProgressText(const std::string& command,
                         const WorkProgress& work,
                         std::optional<std::uint64_t> total,
                         std::chrono::milliseconds passed) {
    const auto time = static_cast<std::uint64_t>(std::max<std::int64_t>(passed.count(), 1));
    const std::uint64_t speed = work.done * kSecond / time;
    std::string text = command + "  ";
    if (total) {
        text += std::to_string(*total == 0 ? 100 : work.done * 100 / *total) + "%  " +
                std::to_string(work.done) + "/" + std::to_string(*total);
    } else {
        text += std::to_string(work.done) + (work.done == 1 ? " line" : " lines");
    }
    text += "  " + std::to_string(speed) + "/s";
    if (total && speed > 0) {
        text += "  " + std::to_string((*total - work.done + speed - 1) / speed) + " s left";
    }
    return text + (work.misses > 0 ? "  (X " + std::to_string(work.misses) + ")" : "");
}

}  // namespace qxmix
