#include "WorkerProcess.h"

#include "WindowsApi.h"
#include "errors/Errors.h"
#include "text/ParseWhole.h"
#include "workers/WorkerLoop.h"

#include <cstdint>

namespace qxmix {

int RunWorkerProcess(const char* handle) {
    // A library that crashes ends the worker; nobody has to press a button for it.
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
    const auto number = ParseWhole<std::uint32_t>(handle);
    if (!number) {
        return static_cast<int>(ExitStatus::BadInput);
    }
    Channel channel(reinterpret_cast<HANDLE>(static_cast<std::uintptr_t>(*number)));
    try {
        RunWorker(channel);
    } catch (const std::exception&) {
        return static_cast<int>(ExitStatus::CannotWork);
    }
    return static_cast<int>(ExitStatus::Well);
}

}  // namespace qxmix
