// Linked into what is measured, in the coverage build alone: a process leaves its counts also where
// it ends by _exit or by a signal that it sends to itself, or is killed, as workers are. The linker
// puts these in front of the system's functions (--wrap).
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

extern "C" {
void __gcov_dump();
void __gcov_reset();
[[noreturn]] void __real__exit(int status);
int __real_kill(pid_t process, int signal);
int __real_raise(int signal);
}

namespace {

volatile std::sig_atomic_t isKeeping = 0;

/// A limit on the size of files is for what the tool writes. Where it cannot be lifted any more,
/// there are no counts: what is cut would spoil those of others.
bool CanKeep() {
    constexpr rlimit kNone{RLIM_INFINITY, RLIM_INFINITY};
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    return limit.rlim_cur == RLIM_INFINITY || setrlimit(RLIMIT_FSIZE, &kNone) == 0;
}

void Keep() {
    if (isKeeping == 0 && CanKeep()) {  // a signal's handler may come in between
        isKeeping = 1;
        __gcov_dump();
        __gcov_reset();  // who raises a signal may go on, and count
        isKeeping = 0;
    }
}

}  // namespace

extern "C" {

[[noreturn]] void __wrap__exit(int status) {
    Keep();
    __real__exit(status);
}

int __wrap_raise(int signal) {
    Keep();
    return __real_raise(signal);
}

/// In the place of SIGKILL first a signal that lets a child leave its counts and die of SIGKILL.
int __wrap_kill(pid_t process, int signal) {
    if (signal == SIGKILL && process > 0 && __real_kill(process, SIGUSR1) == 0) {
        constexpr timespec kTick{0, 1000000};
        siginfo_t end{};
        // A child that is stopped, or too busy within the library of counts, dies without them.
        for (int tick = 0; tick < 2000 && end.si_pid == 0; ++tick) {
            if (waitid(P_PID, static_cast<id_t>(process), &end, WEXITED | WNOHANG | WNOWAIT) != 0) {
                break;
            }
            nanosleep(&kTick, nullptr);
        }
    }
    return __real_kill(process, signal);
}

}  // extern "C"

namespace {

void LeaveCounts(int) {
    if (isKeeping == 0) {
        Keep();
        __real_kill(getpid(), SIGKILL);
    }
}

/// What a process inherits that it forks.
[[maybe_unused]] const auto handled = std::signal(SIGUSR1, LeaveCounts);

/// The library of counts comes behind this.
void LeaveWithout(int status, void*) {
    if (!CanKeep()) {
        std::fflush(nullptr);
        __real__exit(status);
    }
}
[[maybe_unused]] const int registered = on_exit(LeaveWithout, nullptr);

}  // namespace
