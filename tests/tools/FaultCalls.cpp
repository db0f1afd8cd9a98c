// Put before the system's own functions (LD_PRELOAD): lets the n-th call of a kind go wrong,
// counted over the process and all that it forks, so that each call of a run can be met in turn.
//
// QXMIX_FAULT is what goes wrong: "full" (a write by the first process ends half done on a full
// disk), "killSend" or "killReceive" (a child is killed where it sends or receives a message).
// QXMIX_FAULT_AT is n, from 1 on; QXMIX_FAULT_FILE is a file that is made when it has happened.

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// The next function of this name: the system's.
template <typename Function>
Function* Next(const char* name) {
    void* const address = dlsym(RTLD_NEXT, name);
    Function* function = nullptr;
    std::memcpy(&function, &address, sizeof(function));
    return function;
}

class Fault {
public:
    Fault()
        : what_(std::getenv("QXMIX_FAULT")), at_(NumberOf("QXMIX_FAULT_AT")), first_(getpid()),
          calls_(static_cast<std::atomic<long>*>(mmap(nullptr,
                                                      sizeof(std::atomic<long>),
                                                      PROT_READ | PROT_WRITE,
                                                      MAP_SHARED | MAP_ANONYMOUS,
                                                      -1,
                                                      0))) {}

    /// Whether this call is the one that goes wrong.
    bool Happens(const char* what, bool inChild) {
        if (what_ == nullptr || std::strcmp(what_, what) != 0 || (getpid() != first_) != inChild ||
            ++*calls_ != at_) {
            return false;
        }
        if (const char* const file = std::getenv("QXMIX_FAULT_FILE")) {
            close(open(file, O_CREAT | O_WRONLY | O_CLOEXEC, 0600));
        }
        return true;
    }

private:
    static long NumberOf(const char* name) {
        const char* const text = std::getenv(name);
        return text == nullptr ? 0 : std::strtol(text, nullptr, 10);
    }

    const char* what_;
    long at_;
    pid_t first_;
    std::atomic<long>* calls_;
};

Fault& TheFault() {
    static Fault fault;
    return fault;
}

/// Before anything is forked.
__attribute__((constructor)) void Begin() {
    TheFault();
}

bool IsFile(int descriptor) {
    struct stat status {};
    return fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

}  // namespace

extern "C" {

ssize_t write(int descriptor, const void* bytes, size_t size) {
    static auto* const next = Next<ssize_t(int, const void*, size_t)>("write");
    static bool isFull = false;
    if (IsFile(descriptor) && (isFull || TheFault().Happens("full", false))) {
        if (!isFull && size > 1) {
            isFull = true;  // and stays so
            return next(descriptor, bytes, size / 2);
        }
        isFull = true;
        errno = ENOSPC;
        return -1;
    }
    return next(descriptor, bytes, size);
}

ssize_t send(int end, const void* bytes, size_t size, int flags) {
    static auto* const next = Next<ssize_t(int, const void*, size_t, int)>("send");
    if (TheFault().Happens("killSend", true)) {
        next(end, bytes, size / 2, flags);
        raise(SIGKILL);
    }
    return next(end, bytes, size, flags);
}

ssize_t recv(int end, void* bytes, size_t size, int flags) {
    static auto* const next = Next<ssize_t(int, void*, size_t, int)>("recv");
    const ssize_t received = next(end, bytes, size, flags);
    if (TheFault().Happens("killReceive", true)) {
        raise(SIGKILL);
    }
    return received;
}
}
