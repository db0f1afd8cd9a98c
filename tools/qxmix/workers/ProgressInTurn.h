#pragma once

#include "Desk.h"

#include <utility>

namespace qxmix {

/// Tells a listener of several works, one after the other, as of one.
class ProgressInTurn {
public:
    explicit ProgressInTurn(ProgressListener listen) : listen_(std::move(listen)) {}

    /// The listener of the next work; it lives no longer than this.
    ProgressListener Next() {
        before_ = now_;
        return [this](const WorkProgress& work) {
            now_.done = before_.done + work.done;
            now_.misses = before_.misses + work.misses;
            listen_(now_);
        };
    }

private:
    ProgressListener listen_;
    WorkProgress before_;
    WorkProgress now_;
};

}  // namespace qxmix
