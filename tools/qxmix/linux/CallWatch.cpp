#include "workers/CallWatch.h"

#include "errors/Errors.h"
#include "workers/LastShare.h"

#include <atomic>
#include <csignal>
#include <cstdint>
#include <ctime>
#include <sys/time.h>
#include <unistd.h>

namespace qxmix {

namespace {

constexpr std::int64_t kNanosecondsPerMillisecond = 1000000;

/// A clock for each call would cost more than many a call: this one ticks, and a tick looks whether
/// the call under way is the one that it has seen before.
constexpr suseconds_t kTickMicroseconds = 10000;

// What a signal's handler reads: locks would not be safe there.
std::atomic<std::uint64_t> calls{0};       // begun so far
std::atomic<std::int64_t> deadlineNow{0};  // nanoseconds, of the call under way; 0: there is none
static_assert(std::atomic<std::uint64_t>::is_always_lock_free);
static_assert(std::atomic<std::int64_t>::is_always_lock_free);

std::int64_t Nanoseconds(clockid_t clock) {
    timespec time{};
    clock_gettime(clock, &time);
    return std::int64_t{time.tv_sec} * 1000 * kNanosecondsPerMillisecond + time.tv_nsec;
}

[[noreturn]] void EndProcess() {
    _exit(static_cast<int>(ExitStatus::CannotWork));
}

void LookAtCall(int) {
    static std::uint64_t seen = 0;
    static std::int64_t worked = 0;
    static std::int64_t waited = 0;
    const std::int64_t deadline = deadlineNow;
    const std::int64_t workedNow = Nanoseconds(CLOCK_PROCESS_CPUTIME_ID);
    const std::int64_t waitedNow = Nanoseconds(CLOCK_MONOTONIC);
    if (calls != seen) {
        seen = calls;
        worked = workedNow;
        waited = waitedNow;
    } else if (deadline != 0 &&
               (workedNow - worked > deadline || waitedNow - waited > deadline * kLastShare)) {
        EndProcess();
    }
}

void SetTicks(suseconds_t microseconds) {
    itimerval ticks{};
    ticks.it_interval.tv_usec = microseconds;
    ticks.it_value.tv_usec = microseconds;
    setitimer(ITIMER_REAL, &ticks, nullptr);
}

}  // namespace

CallWatch::CallWatch() {
    struct sigaction action {};
    action.sa_handler = &LookAtCall;
    action.sa_flags = SA_RESTART;
    sigaction(SIGALRM, &action, nullptr);
    SetTicks(kTickMicroseconds);
}

CallWatch::~CallWatch() {
    SetTicks(0);
}

void CallWatch::Begin(Milliseconds deadline) {
    ++calls;
    deadlineNow = deadline.count() * kNanosecondsPerMillisecond;
}

void CallWatch::End(std::chrono::nanoseconds took) {
    if (took.count() > deadlineNow) {
        EndProcess();
    }
    deadlineNow = 0;
}

}  // namespace qxmix
