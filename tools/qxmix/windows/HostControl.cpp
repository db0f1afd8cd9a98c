#include "HostControl.h"

#include "WindowsApi.h"

#include <cstring>

int WFMFreeBuffer(void* block) {
    using FreeFunction = HRESULT(WINAPI*)(void*);
    const HMODULE manager = GetModuleHandleA("MSXFS.dll");
    const FARPROC address = manager == nullptr ? nullptr : GetProcAddress(manager, "WFMFreeBuffer");
    FreeFunction function = nullptr;
    std::memcpy(&function, &address, sizeof(function));
    return function == nullptr || block == nullptr ? 0 : function(block);
}
