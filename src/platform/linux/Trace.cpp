#include "Guarded.h"
#include "HostControl.h"
#include "TraceSink.h"

#include <atomic>
#include <mutex>

namespace {

/// Who hears the trace lines.
class Listener {
public:
    bool IsThere() const noexcept { return isThere_; }

    void Set(QxmixTraceListener function, void* context) {
        const std::lock_guard<std::recursive_mutex> lock(mutex_);
        function_ = function;
        context_ = context;
        isThere_ = function != nullptr;
    }

    void Hear(const char* line) {
        // Held while the listener runs, so that a listener that was taken back is not called any
        // more; recursive, so that it may take itself back.
        const std::lock_guard<std::recursive_mutex> lock(mutex_);
        if (function_ != nullptr) {
            function_(context_, line);
        }
    }

private:
    std::recursive_mutex mutex_;
    std::atomic<bool> isThere_{false};
    QxmixTraceListener function_ = nullptr;
    void* context_ = nullptr;
};

/// The listener of the process, which lives until it ends.
Listener& TheListener() {
    static Listener& listener = *new Listener;
    return listener;
}

}  // namespace

void QxmixSetTraceListener(QxmixTraceListener listener, void* context) {
    TheListener().Set(listener, context);
}

int QxmixTraceWanted() {
    return TheListener().IsThere() ? 1 : 0;
}

void QxmixTraceLine(const char* line) {
    Guarded([line] {
        if (line != nullptr) {
            TheListener().Hear(line);
        }
    });
}
