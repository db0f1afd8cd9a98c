#include "workers/Interrupt.h"

#include "PartFile.h"
#include "errors/Errors.h"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace qxmix {

namespace {

volatile std::sig_atomic_t interrupted = 0;
int wakeUp[2] = {-1, -1};

void OnInterrupt(int) {
    if (interrupted != 0) {
        RemovePartFiles();
        _exit(static_cast<int>(ExitStatus::Interrupted));
    }
    interrupted = 1;
    const int error = errno;
    const char byte = 0;
    // A full pipe is readable already, so the result does not matter.
    const ssize_t ignored = write(wakeUp[1], &byte, 1);
    static_cast<void>(ignored);
    errno = error;
}

void HandleWith(void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigaction(SIGINT, &action, nullptr);
}

}  // namespace

void CatchInterrupts() {
    if (wakeUp[0] >= 0) {
        return;
    }
    if (pipe2(wakeUp, O_CLOEXEC | O_NONBLOCK) != 0) {
        throw WorkError(std::string("no pipe: ") + std::strerror(errno));
    }
    HandleWith(&OnInterrupt);
}

int InterruptDescriptor() {
    return wakeUp[0];
}

void TakeInterrupt() {
    char bytes[8];
    while (read(wakeUp[0], bytes, sizeof(bytes)) > 0) {
    }
}

void IgnoreInterrupts() {
    HandleWith(SIG_IGN);
    for (int& end : wakeUp) {
        // What the tool is told there is not for the worker.
        close(std::exchange(end, -1));
    }
}

}  // namespace qxmix
