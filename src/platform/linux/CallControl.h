#pragma once

#include "Guarded.h"
#include "HostControl.h"
#include "KeptLocks.h"

#include <array>
#include <atomic>
#include <cstdint>
#include <mutex>
#include <string>
#include <vector>

/// A call of the module while it runs, and afterwards in the log. Texts are filled only when
/// somebody logs; the fields mean what those of QxmixCall mean.
struct ModuleCall {
    explicit ModuleCall(QxmixFunction called) noexcept : function(called) {}

    QxmixFunction function;
    std::string key;
    std::string valueName;
    std::uint32_t access = 0;
    std::uint32_t type = 0;
    std::uint32_t size = 0;
    std::uint32_t options = 0;
    std::int32_t result = 0;
    bool forced = false;
};

/// Counts the calls of the module, lets them fail when a host asked for it, and keeps their log.
/// Safe under threads.
class CallControl {
public:
    /// The one of the process; it lives until the process ends.
    static CallControl& Instance();

    /// Counts a call, runs it unless it has to fail, and logs it. An exception in the action is
    /// want of memory, and gives the usual failure.
    template <typename Action>
    std::int32_t Run(ModuleCall* call, Action action) noexcept {
        call->forced = CountAndJudge(call->function, &call->result);
        if (!call->forced) {
            call->result = Guarded(UsualFailure(call->function), action);
        }
        Log(*call);
        return call->result;
    }

    bool IsLogging() const noexcept { return logging_; }
    void SetLogging(bool on) noexcept { logging_ = on; }

    std::uint32_t Count(QxmixFunction function);
    void Reset();

    /// @param n       which call from now on fails, from 1; 0 for none.
    /// @param onward  whether all later ones fail too.
    void FailCall(QxmixFunction function, std::uint32_t n, bool onward, std::int32_t code);

    std::uint32_t LogSize();

    /// @return whether there is such a call.
    bool Logged(std::uint32_t index, ModuleCall* call);

private:
    static constexpr std::size_t kFunctions = kQxmixAnyFunction;
    static constexpr std::size_t kMaxLogged = 100000;

    /// A failure asked for; none when callsLeft is 0 and it is not failing already.
    struct Order {
        std::uint32_t callsLeft = 0;  ///< until the failing one, itself included
        bool onward = false;
        bool failing = false;
        std::int32_t code = 0;
    };

    static std::int32_t UsualFailure(QxmixFunction function) noexcept;
    static bool Falls(Order* order) noexcept;
    bool CountAndJudge(QxmixFunction function, std::int32_t* code) noexcept;
    void Log(const ModuleCall& call) noexcept;

    std::mutex& mutex_ = LockOf(Kept::Calls);
    std::atomic<bool> logging_{false};
    std::array<std::uint32_t, kFunctions + 1> counts_{};  // the last of each is for any function
    std::array<Order, kFunctions + 1> orders_{};
    std::vector<ModuleCall> log_;
};
