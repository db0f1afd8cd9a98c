#include "InterruptEvent.h"
#include "WindowsApi.h"
#include "errors/Errors.h"
#include "workers/Channel.h"

#include <algorithm>

namespace qxmix {

namespace {

DWORD MillisecondsUntil(std::optional<Clock::time_point> until) {
    if (!until) {
        return INFINITE;
    }
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(*until - Clock::now()).count();
    return static_cast<DWORD>(std::clamp<std::int64_t>(left, 0, INT32_MAX));
}

/// One reading or writing that goes on while the tool waits for other things, too.
class Transfer {
public:
    explicit Transfer(HANDLE pipe) : pipe_(pipe) {
        state_.hEvent = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    }
    Transfer(const Transfer&) = delete;
    Transfer& operator=(const Transfer&) = delete;
    ~Transfer() { CloseHandle(state_.hEvent); }

    OVERLAPPED* State() { return &state_; }

    /// Waits for the end, or else for Ctrl-C.
    DWORD Wait(DWORD milliseconds) const {
        const HANDLE events[] = {state_.hEvent, InterruptEvent()};
        return WaitForMultipleObjects(events[1] == nullptr ? 1 : 2, events, FALSE, milliseconds);
    }

    /// Breaks off what is not done yet.
    void Cancel() { CancelIo(pipe_); }

    /// Bytes that got through, also of a transfer that was broken off; nothing when it failed.
    std::optional<DWORD> Result() {
        DWORD size = 0;
        if (GetOverlappedResult(pipe_, &state_, &size, TRUE) != 0) {
            return size;
        }
        return GetLastError() == ERROR_OPERATION_ABORTED ? std::make_optional<DWORD>(0)
                                                         : std::nullopt;
    }

private:
    HANDLE pipe_;
    OVERLAPPED state_{};
};

bool IsUnderWay(BOOL started) {
    return started != 0 || GetLastError() == ERROR_IO_PENDING;
}

}  // namespace

Channel::~Channel() {
    if (end_ != kNoChannelEnd) {
        CloseHandle(end_);
    }
}

bool Channel::WriteAll(const std::string& bytes) {
    std::size_t sent = 0;
    while (sent < bytes.size()) {
        Transfer transfer(end_);
        if (!IsUnderWay(WriteFile(end_, bytes.data() + sent,
                                  static_cast<DWORD>(bytes.size() - sent), nullptr,
                                  transfer.State()))) {
            return false;
        }
        const std::optional<DWORD> size = transfer.Result();
        if (!size) {
            return false;
        }
        sent += *size;
    }
    return true;
}

Channel::State Channel::ReadSome(std::optional<Clock::time_point> until) {
    char block[8192];
    Transfer transfer(end_);
    if (!IsUnderWay(ReadFile(end_, block, sizeof(block), nullptr, transfer.State()))) {
        return State::Closed;
    }
    const DWORD ended = transfer.Wait(MillisecondsUntil(until));
    if (ended != WAIT_OBJECT_0) {
        transfer.Cancel();
    }
    // Something may have come before the transfer was broken off.
    const std::optional<DWORD> size = transfer.Result();
    received_.append(block, size.value_or(0));
    if (ended == WAIT_OBJECT_0 + 1) {
        throw Interruption();
    }
    if (!size) {
        return State::Closed;
    }
    return *size > 0 ? State::Received : State::Waiting;
}

}  // namespace qxmix
