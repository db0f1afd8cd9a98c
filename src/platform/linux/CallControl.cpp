#include "CallControl.h"

CallControl& CallControl::Instance() {
    // On purpose never destroyed: the module may still be called while the process ends.
    static CallControl& control = *new CallControl;
    return control;
}

namespace {

// Made when the library is loaded: a fork amid the first call would leave it half made in the
// child.
[[maybe_unused]] const CallControl& madeAtLoad = CallControl::Instance();

}  // namespace

std::int32_t CallControl::UsualFailure(QxmixFunction function) noexcept {
    switch (function) {
    case kQxmixEventModify:
        return 0;
    case kQxmixWFMAllocateBuffer:
    case kQxmixWFMAllocateMore:
        return kQxmixXfsOutOfMemory;
    default:
        return kQxmixErrorOutOfMemory;
    }
}

/// Moves an order on by one call.
/// @return whether that call fails by it.
bool CallControl::Falls(Order* order) noexcept {
    if (order->callsLeft != 0) {
        --order->callsLeft;
        order->failing = order->callsLeft == 0;
    }
    const bool fails = order->failing;
    order->failing = fails && order->onward;
    return fails;
}

bool CallControl::CountAndJudge(QxmixFunction function, std::int32_t* code) noexcept {
    const std::lock_guard<std::mutex> lock(mutex_);
    bool fails = false;
    // Both orders move on with every call; that for the function itself has the last word.
    for (const QxmixFunction counted : {kQxmixAnyFunction, function}) {
        ++counts_[counted];
        if (Falls(&orders_[counted])) {
            fails = true;
            *code = orders_[counted].code;
        }
    }
    if (fails && *code == kQxmixUsualFailure) {
        *code = UsualFailure(function);
    }
    return fails;
}

void CallControl::Log(const ModuleCall& call) noexcept {
    if (!IsLogging()) {
        return;
    }
    Guarded([&] {
        const std::lock_guard<std::mutex> lock(mutex_);
        if (log_.size() < kMaxLogged) {
            log_.push_back(call);
        }
    });
}

std::uint32_t CallControl::Count(QxmixFunction function) {
    const std::lock_guard<std::mutex> lock(mutex_);
    return counts_[function];
}

void CallControl::Reset() {
    const std::lock_guard<std::mutex> lock(mutex_);
    counts_ = {};
    orders_ = {};
    log_.clear();
}

void CallControl::FailCall(QxmixFunction function,
                           std::uint32_t n,
                           bool onward,
                           std::int32_t code) {
    const std::lock_guard<std::mutex> lock(mutex_);
    orders_[function] = {n, onward, false, code};
}

std::uint32_t CallControl::LogSize() {
    const std::lock_guard<std::mutex> lock(mutex_);
    return static_cast<std::uint32_t>(log_.size());
}

bool CallControl::Logged(std::uint32_t index, ModuleCall* call) {
    const std::lock_guard<std::mutex> lock(mutex_);
    if (index >= log_.size()) {
        return false;
    }
    *call = log_[index];
    return true;
}
