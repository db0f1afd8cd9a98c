/// The least that the module needs of a platform: an empty registry that remembers the error code,
/// no memory manager, no events and no trace. In place of the stand-in library, so that the vectors
/// run where nothing but the C library can be had, and benchmarks time the module alone.

#include "PlatformApi.h"
#include "RecordedCode.h"
#include "TraceSink.h"

#include <cstring>

namespace {

constexpr LONG kFileNotFound = 2;

char recorded[16];
int errorCodeKey;  // its address stands for the open key

}  // namespace

void ForgetRecordedCode() noexcept {
    recorded[0] = '\0';
}

const char* RecordedCode() noexcept {
    return recorded;
}

LONG RegOpenKeyExW(HKEY key, const PlatformChar*, DWORD, REGSAM, HKEY* opened) {
    if (key != HKEY_LOCAL_MACHINE) {
        return kFileNotFound;
    }
    *opened = reinterpret_cast<HKEY>(&errorCodeKey);
    return ERROR_SUCCESS;
}

LONG RegCreateKeyExW(HKEY,
                     const PlatformChar*,
                     DWORD,
                     PlatformChar*,
                     DWORD,
                     REGSAM,
                     void*,
                     HKEY*,
                     DWORD*) {
    return kFileNotFound;
}

LONG RegQueryValueExW(HKEY, const PlatformChar*, DWORD*, DWORD*, std::uint8_t*, DWORD*) {
    return kFileNotFound;
}

LONG RegSetValueExW(HKEY key,
                    const PlatformChar*,
                    DWORD,
                    DWORD,
                    const std::uint8_t* bytes,
                    DWORD size) {
    if (key == reinterpret_cast<HKEY>(&errorCodeKey) && size < sizeof(recorded)) {
        std::memcpy(recorded, bytes, size);
        recorded[size] = '\0';
    }
    return ERROR_SUCCESS;
}

LONG RegCloseKey(HKEY) {
    return ERROR_SUCCESS;
}

BOOL EventModify(HANDLE, DWORD) {
    return 0;
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
