#include "workers/Interrupt.h"

#include "InterruptEvent.h"
#include "LastError.h"
#include "PartFile.h"
#include "WindowsApi.h"
#include "errors/Errors.h"

namespace qxmix {

namespace {

HANDLE interrupted = nullptr;

/// Runs in a thread of the system's.
BOOL WINAPI OnControl(DWORD event) {
    if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT) {
        return FALSE;
    }
    if (WaitForSingleObject(interrupted, 0) == WAIT_OBJECT_0) {
        RemovePartFiles();
        TerminateProcess(GetCurrentProcess(), static_cast<UINT>(ExitStatus::Interrupted));
    }
    SetEvent(interrupted);
    return TRUE;
}

}  // namespace

void CatchInterrupts() {
    if (interrupted != nullptr) {
        return;
    }
    interrupted = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    if (interrupted == nullptr || SetConsoleCtrlHandler(&OnControl, TRUE) == 0) {
        throw WorkError("Ctrl-C cannot be caught: " + LastErrorText());
    }
}

void* InterruptEvent() {
    return interrupted;
}

}  // namespace qxmix
