#include "workers/ChildProcess.h"

#include "LastError.h"
#include "WindowsApi.h"
#include "WorkerProcess.h"
#include "errors/Errors.h"

#include <cstdio>
#include <utility>
#include <vector>

namespace qxmix {

namespace {

/// A handle that is closed with its owner.
class OwnHandle {
public:
    explicit OwnHandle(HANDLE handle = nullptr) : handle_(handle) {}
    OwnHandle(const OwnHandle&) = delete;
    OwnHandle& operator=(const OwnHandle&) = delete;
    ~OwnHandle() {
        if (IsThere()) {
            CloseHandle(handle_);
        }
    }

    bool IsThere() const { return handle_ != nullptr && handle_ != INVALID_HANDLE_VALUE; }
    HANDLE Get() const { return handle_; }
    HANDLE Release() { return std::exchange(handle_, nullptr); }

private:
    HANDLE handle_;
};

[[noreturn]] void FailToStart() {
    throw WorkError("no child process: " + LastErrorText());
}

SECURITY_ATTRIBUTES Inherited() {
    return {sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
}

std::string PipeName() {
    static unsigned number = 0;
    ++number;
    return "\\\\.\\pipe\\qxmix-" + std::to_string(GetCurrentProcessId()) + "-" +
           std::to_string(number);
}

/// Both ends of a pipe for both directions: only a named one can be waited for with a deadline.
std::pair<HANDLE, HANDLE> ConnectedPipe() {
    constexpr DWORD kBufferSize = 65536;
    const std::string name = PipeName();
    OwnHandle mine(CreateNamedPipeA(
        name.c_str(), PIPE_ACCESS_DUPLEX | FILE_FLAG_OVERLAPPED | FILE_FLAG_FIRST_PIPE_INSTANCE,
        PIPE_TYPE_BYTE | PIPE_REJECT_REMOTE_CLIENTS, 1, kBufferSize, kBufferSize, 0, nullptr));
    if (!mine.IsThere()) {
        FailToStart();
    }
    SECURITY_ATTRIBUTES inherited = Inherited();
    OwnHandle childs(CreateFileA(name.c_str(), GENERIC_READ | GENERIC_WRITE, 0, &inherited,
                                 OPEN_EXISTING, FILE_FLAG_OVERLAPPED, nullptr));
    if (!childs.IsThere()) {
        FailToStart();
    }
    return {mine.Release(), childs.Release()};
}

/// A copy that a child can take over; null without an original.
HANDLE InheritedCopy(HANDLE original) {
    HANDLE copy = nullptr;
    DuplicateHandle(GetCurrentProcess(), original, GetCurrentProcess(), &copy, 0, TRUE,
                    DUPLICATE_SAME_ACCESS);
    return copy;
}

std::string CommandLineFor(HANDLE channel) {
    char tool[MAX_PATH] = "";
    if (GetModuleFileNameA(nullptr, tool, sizeof(tool)) == 0) {
        FailToStart();
    }
    return '"' + std::string(tool) + "\" " + kWorkerArgument + " " +
           std::to_string(reinterpret_cast<std::uintptr_t>(channel));
}

/// A group of processes that ends with the last handle to it, which is the tool's.
HANDLE EndingWithTheTool() {
    const HANDLE job = CreateJobObjectW(nullptr, nullptr);
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof(limits));
    return job;
}

/// Starts the tool as a worker: no input, its output to the tool's standard error.
HANDLE StartWorker(HANDLE channel) {
    static const HANDLE job = EndingWithTheTool();
    SECURITY_ATTRIBUTES inherited = Inherited();
    const OwnHandle nothing(CreateFileA("NUL", GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                        &inherited, OPEN_EXISTING, 0, nullptr));
    const OwnHandle errors(InheritedCopy(GetStdHandle(STD_ERROR_HANDLE)));
    STARTUPINFOA start{};
    start.cb = sizeof(start);
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = nothing.Get();
    start.hStdOutput = errors.Get();
    start.hStdError = errors.Get();
    std::string commandLine = CommandLineFor(channel);
    PROCESS_INFORMATION made{};
    // In a group of its own it takes no notice of Ctrl-C.
    if (CreateProcessA(nullptr, commandLine.data(), nullptr, nullptr, TRUE,
                       CREATE_SUSPENDED | CREATE_NEW_PROCESS_GROUP, nullptr, nullptr, &start,
                       &made) == 0) {
        FailToStart();
    }
    AssignProcessToJobObject(job, made.hProcess);
    ResumeThread(made.hThread);
    CloseHandle(made.hThread);
    return made.hProcess;
}

}  // namespace

// A process cannot be copied here: the child is the tool started anew, and what it runs is always
// the one body that this tool has for children, a worker.
ChildProcess::ChildProcess(const std::function<void(Channel&)>&) : channel_(kNoChannelEnd) {
    const auto [mine, childs] = ConnectedPipe();
    channel_ = Channel(mine);
    const OwnHandle closedHere(childs);
    process_ = StartWorker(childs);
}

ChildProcess::~ChildProcess() {
    Kill();
}

std::chrono::nanoseconds ChildProcess::WorkingTime() const {
    FILETIME unused{};
    FILETIME kernel{};
    FILETIME user{};
    if (process_ == kNoProcess ||
        GetProcessTimes(process_, &unused, &unused, &kernel, &user) == 0) {
        return std::chrono::nanoseconds(0);
    }
    const auto ticks = [](const FILETIME& time) {
        return (std::uint64_t{time.dwHighDateTime} << 32U) | time.dwLowDateTime;
    };
    constexpr std::uint64_t kNanosecondsInTick = 100;
    return std::chrono::nanoseconds((ticks(kernel) + ticks(user)) * kNanosecondsInTick);
}

void ChildProcess::Kill() {
    if (process_ != kNoProcess) {
        TerminateProcess(process_, static_cast<UINT>(ExitStatus::CannotWork));
        WaitForEnd();
    }
}

std::string ChildProcess::WaitForEnd() {
    WaitForSingleObject(process_, INFINITE);
    DWORD status = 0;
    GetExitCodeProcess(process_, &status);
    CloseHandle(std::exchange(process_, kNoProcess));
    constexpr DWORD kFirstException = 0x80000000;
    if (status < kFirstException) {
        return "exit status " + std::to_string(status);
    }
    char text[64] = "";
    std::snprintf(text, sizeof(text), "exception 0x%08lX%s", status,
                  status == EXCEPTION_ACCESS_VIOLATION ? " (access violation)" : "");
    return text;
}

}  // namespace qxmix
