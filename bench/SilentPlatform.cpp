// A platform that does nothing: what the benchmarks time is the module alone.

#include "PlatformApi.h"
#include "TraceSink.h"

extern "C" {

LONG RegOpenKeyExW(HKEY key, const PlatformChar*, DWORD, REGSAM, HKEY* opened) {
    *opened = key;
    return ERROR_SUCCESS;
}

LONG RegCreateKeyExW(HKEY key,
                     const PlatformChar*,
                     DWORD,
                     PlatformChar*,
                     DWORD,
                     REGSAM,
                     void*,
                     HKEY* opened,
                     DWORD*) {
    *opened = key;
    return ERROR_SUCCESS;
}

LONG RegQueryValueExW(HKEY, const PlatformChar*, DWORD*, DWORD*, std::uint8_t*, DWORD*) {
    constexpr LONG kFileNotFound = 2;
    return kFileNotFound;
}

LONG RegSetValueExW(HKEY, const PlatformChar*, DWORD, DWORD, const std::uint8_t*, DWORD) {
    return ERROR_SUCCESS;
}

LONG RegCloseKey(HKEY) {
    return ERROR_SUCCESS;
}

BOOL EventModify(HANDLE, DWORD) {
    return 1;
}

HRESULT WFMAllocateBuffer(ULONG, ULONG, void**) {
    return -1;
}

HRESULT WFMAllocateMore(ULONG, void*, void**) {
    return -1;
}

int QxmixTraceWanted() {
    return 0;
}

void QxmixTraceLine(const char*) {
}
}
