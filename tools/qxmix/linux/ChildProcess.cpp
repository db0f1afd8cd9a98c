#include "workers/ChildProcess.h"

#include "errors/Errors.h"
#include "workers/Interrupt.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace qxmix {

namespace {

std::array<int, 2> ConnectedSockets() {
    std::array<int, 2> ends{};
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) {
        throw WorkError(std::string("no connection to a child process: ") + std::strerror(errno));
    }
    return ends;
}

/// Keeps whatever the library prints out of the tool's answer, and the terminal's input away.
void DetachStandardStreams() {
    dup2(STDERR_FILENO, STDOUT_FILENO);
    const int nothing = open("/dev/null", O_RDONLY | O_CLOEXEC);
    if (nothing >= 0) {
        dup2(nothing, STDIN_FILENO);
        close(nothing);
    }
}

[[noreturn]] void RunChild(const std::function<void(Channel&)>& body, int descriptor) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    IgnoreInterrupts();
    DetachStandardStreams();
    Channel channel(descriptor);
    try {
        body(channel);
    } catch (const std::exception&) {
        _exit(static_cast<int>(ExitStatus::CannotWork));
    }
    // Not exit: what waits in the tool's buffers is the tool's to write.
    _exit(static_cast<int>(ExitStatus::Well));
}

}  // namespace

ChildProcess::ChildProcess(const std::function<void(Channel&)>& body) : channel_(kNoChannelEnd) {
    const auto [mine, childs] = ConnectedSockets();
    process_ = fork();
    if (process_ == 0) {
        close(mine);
        RunChild(body, childs);
    }
    close(childs);
    channel_ = Channel(mine);
    if (process_ < 0) {
        throw WorkError(std::string("no child process: ") + std::strerror(errno));
    }
}

ChildProcess::~ChildProcess() {
    Kill();
}

std::chrono::nanoseconds ChildProcess::WorkingTime() const {
    clockid_t clock{};
    timespec used{};
    if (process_ <= 0 || clock_getcpuclockid(process_, &clock) != 0 ||
        clock_gettime(clock, &used) != 0) {
        return std::chrono::nanoseconds(0);
    }
    return std::chrono::seconds(used.tv_sec) + std::chrono::nanoseconds(used.tv_nsec);
}

void ChildProcess::Kill() {
    if (process_ > 0) {
        kill(process_, SIGKILL);
        WaitForEnd();
    }
}

std::string ChildProcess::WaitForEnd() {
    int status = 0;
    while (waitpid(process_, &status, 0) < 0 && errno == EINTR) {
    }
    process_ = kNoProcess;
    if (WIFSIGNALED(status)) {
        const int signal = WTERMSIG(status);
        return "signal " + std::to_string(signal) + " (" + strsignal(signal) + ")";
    }
    return "exit status " + std::to_string(WEXITSTATUS(status));
}

}  // namespace qxmix
