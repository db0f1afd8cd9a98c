#include "module/SharedLibrary.h"

#include "LastError.h"
#include "WindowsApi.h"
#include "errors/Errors.h"

#include <cstring>
#include <vector>

namespace qxmix {

void* OpenSharedLibrary(const std::string& file) {
    // The library's own folder is to be searched for the XFS manager's library; that works for a
    // whole path only.
    const bool isPath = file.find_first_of("\\/") != std::string::npos;
    const HMODULE library =
        LoadLibraryExA(file.c_str(), nullptr, isPath ? LOAD_WITH_ALTERED_SEARCH_PATH : 0);
    if (library == nullptr) {
        const bool misses = GetLastError() == ERROR_MOD_NOT_FOUND;
        throw WorkError(file + ": cannot be loaded: " + LastErrorText() +
                        (misses ? "; expected the XFS manager's library beside it" : ""));
    }
    return library;
}

void* FindExport(void* library, const char* name) {
    const FARPROC function = GetProcAddress(static_cast<HMODULE>(library), name);
    void* address = nullptr;
    std::memcpy(&address, &function, sizeof(address));
    return address;
}

std::string StatedVersion(const std::string& file) {
    DWORD unused = 0;
    std::vector<char> block(GetFileVersionInfoSizeA(file.c_str(), &unused));
    void* text = nullptr;
    UINT size = 0;
    const bool isStated =
        !block.empty() &&
        GetFileVersionInfoA(file.c_str(), 0, static_cast<DWORD>(block.size()), block.data()) != 0 &&
        VerQueryValueA(block.data(), "\\StringFileInfo\\040904B0\\FileVersion", &text, &size) != 0;
    return isStated ? static_cast<const char*>(text) : "";
}

}  // namespace qxmix
