#include "Guarded.h"
#include "HostControl.h"
#include "KeptLocks.h"
#include "TraceSink.h"

#include <atomic>
#include <mutex>
#include <new>
#include <pthread.h>

namespace {

/// Who hears the trace lines.
class Listener {
public:
    bool IsThere() const noexcept { return isThere_; }

    void Set(QxmixTraceListener function, void* context) {
        const std::lock_guard<std::recursive_mutex> hearing(hearing_);
        const std::lock_guard<std::mutex> lock(mutex_);
        function_ = function;
        context_ = context;
        isThere_ = function != nullptr;
    }

    void Hear(const char* line) {
        // Held while the listener runs, so that a listener that was taken back is not called any
        // more; recursive, so that it may take itself back.
        const std::lock_guard<std::recursive_mutex> hearing(hearing_);
        if (function_ != nullptr) {
            function_(context_, line);
        }
    }

    /// In a forked child: nobody hears a line here.
    void BeginAnew() {
        hearing_.~recursive_mutex();
        new (&hearing_) std::recursive_mutex;
    }

private:
    // A listener may take its time, so that who forks does not wait for it, but only while it is
    // exchanged.
    std::recursive_mutex hearing_;
    std::mutex& mutex_ = LockOf(Kept::Listener);
    std::atomic<bool> isThere_{false};
    QxmixTraceListener function_ = nullptr;
    void* context_ = nullptr;
};

/// The listener of the process, which lives until it ends.
Listener& TheListener() {
    static Listener& listener = *new Listener;
    return listener;
}

// When the library is loaded; a fork amid the first call would leave a listener half made.
[[maybe_unused]] const int registered =
    (TheListener(), pthread_atfork(nullptr, nullptr, [] { TheListener().BeginAnew(); }));

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
