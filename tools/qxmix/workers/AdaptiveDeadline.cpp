#include "AdaptiveDeadline.h"

#include <algorithm>

namespace qxmix {

namespace {

constexpr std::size_t kRemembered = 10;
constexpr std::ptrdiff_t kTooMany = 3;
constexpr int kShare = 10;

}  // namespace

AdaptiveDeadline::AdaptiveDeadline(Milliseconds whole)
    : whole_(whole), tenth_(std::max(whole / kShare, Milliseconds(1))) {
}

void AdaptiveDeadline::Note(bool isMiss) {
    misses_.push_back(isMiss);
    if (misses_.size() > kRemembered) {
        misses_.pop_front();
    }
    const std::ptrdiff_t missed = std::count(misses_.begin(), misses_.end(), true);
    if (isShort_) {
        isShort_ = missed > 0 || misses_.size() < kRemembered;
    } else {
        isShort_ = missed >= kTooMany;
    }
}

}  // namespace qxmix
