#pragma once

#include "Worker.h"

#include <cstddef>
#include <deque>

namespace qxmix {

/// Missed deadlines after which a mix that is asked many times is given up.
constexpr std::size_t kMissesToGiveUp = 20;

/// The deadline of one mix on many amounts: after three misses among its last ten amounts it is a
/// tenth, until ten amounts in a row were answered.
class AdaptiveDeadline {
public:
    explicit AdaptiveDeadline(Milliseconds whole);

    /// What the next amount is given; never below a millisecond.
    Milliseconds Next() const { return isShort_ ? tenth_ : whole_; }

    /// How an amount ended; only a missed deadline is a miss.
    void Note(bool isMiss);

private:
    Milliseconds whole_;
    Milliseconds tenth_;
    bool isShort_ = false;
    std::deque<bool> misses_;  // the last ten, the newest at the end
};

}  // namespace qxmix
