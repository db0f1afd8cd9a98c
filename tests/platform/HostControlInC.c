#include "HostControlInC.h"

#include "HostControl.h"

#include <string.h>

static int RegistryWorks(void) {
    const char* key = "HKEY_LOCAL_MACHINE\\SOFTWARE\\FromC";
    uint32_t type = 0;
    char bytes[3] = {0};
    uint32_t size = sizeof(bytes);
    return QxmixRegistrySetValue(key, "V", kQxmixRegBinary, "abc", 3) == 0 &&
           QxmixRegistryGetValue(key, "V", &type, bytes, &size) == 0 && type == kQxmixRegBinary &&
           size == 3 && memcmp(bytes, "abc", 3) == 0;
}

static int TextWorks(void) {
    QxmixTextError error;
    const char wrong[] = "REGEDIT4\nwrong";
    return QxmixRegistryLoadText(wrong, strlen(wrong), &error) == kQxmixErrorInvalidData &&
           error.line == 2 && error.message[0] != '\0';
}

static int EventsWork(void) {
    void* event = QxmixEventCreate();
    return QxmixEventIsSet(event) == 0 && QxmixEventDestroy(event) == 1;
}

static int MemoryAndCallsWork(void) {
    QxmixFailCall(kQxmixAnyFunction, 1, kQxmixUsualFailure);
    QxmixResetCalls();
    return WFMFreeBuffer(NULL) == kQxmixXfsInvalidPointer &&
           QxmixCallCount(kQxmixAnyFunction) == 0 && QxmixLoggedCalls() == 0;
}

int HostControlWorksInC(void) {
    return RegistryWorks() && TextWorks() && EventsWork() && MemoryAndCallsWork();
}
