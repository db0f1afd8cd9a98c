#include "Events.h"

#include "CallControl.h"
#include "HandleTable.h"
#include "HostControl.h"
#include "KeptLocks.h"
#include "PlatformApi.h"

#include <mutex>

namespace {

constexpr std::uint32_t kFirstEventHandle = 0x0E000001;

// Source: the operations of EventModify on Windows CE.
constexpr DWORD kPulse = 1;
constexpr DWORD kReset = 2;

struct Event {
    bool isSet = false;
    std::uint32_t signals = 0;
};

class Events {
public:
    /// The events of the process, which live until it ends.
    static Events& Instance() {
        static Events& events = *new Events;
        return events;
    }

    void* Create() {
        const std::lock_guard<std::mutex> lock(mutex_);
        return table_.Insert(Event{});
    }

    bool Destroy(const void* event) {
        const std::lock_guard<std::mutex> lock(mutex_);
        return table_.Erase(event);
    }

    void Clear() {
        const std::lock_guard<std::mutex> lock(mutex_);
        table_.Clear();
    }

    /// Runs use(event), or gives another answer for a handle that is no event.
    template <typename Answer, typename Use>
    Answer With(const void* event, Answer whenUnknown, Use use) {
        const std::lock_guard<std::mutex> lock(mutex_);
        Event* found = table_.Find(event);
        return found == nullptr ? whenUnknown : use(*found);
    }

private:
    std::mutex& mutex_ = LockOf(Kept::Events);
    HandleTable<Event> table_{kFirstEventHandle};
};

// Made when the library is loaded: a fork amid the first call would leave it half made in the
// child.
[[maybe_unused]] const Events& madeAtLoad = Events::Instance();

BOOL Modify(Event* event, DWORD operation) noexcept {
    switch (operation) {
    case EVENT_SET:
        event->isSet = true;
        ++event->signals;
        return 1;
    case kPulse:
        // Nobody waits here, so a pulse is over as soon as it came.
        event->isSet = false;
        ++event->signals;
        return 1;
    case kReset:
        event->isSet = false;
        return 1;
    default:
        return 0;
    }
}

}  // namespace

void ForgetEvents() {
    Events::Instance().Clear();
}

BOOL EventModify(HANDLE event, DWORD operation) {
    ModuleCall call(kQxmixEventModify);
    call.options = operation;
    return CallControl::Instance().Run(&call, [=] {
        return Events::Instance().With(
            event, BOOL{0}, [operation](Event& found) { return Modify(&found, operation); });
    });
}

void* QxmixEventCreate() {
    return Guarded<void*>(nullptr, [] { return Events::Instance().Create(); });
}

int QxmixEventIsSet(const void* event) {
    return Events::Instance().With(event, -1,
                                   [](const Event& found) { return found.isSet ? 1 : 0; });
}

std::uint32_t QxmixEventSignals(const void* event) {
    return Events::Instance().With(event, std::uint32_t{0},
                                   [](const Event& found) { return found.signals; });
}

int QxmixEventReset(void* event) {
    return Events::Instance().With(event, 0, [](Event& found) {
        found.isSet = false;
        return 1;
    });
}

int QxmixEventDestroy(void* event) {
    return Events::Instance().Destroy(event) ? 1 : 0;
}
