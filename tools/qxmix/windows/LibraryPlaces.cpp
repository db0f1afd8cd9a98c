#include "module/LibraryPlaces.h"

#include "WindowsApi.h"

#include <filesystem>

namespace qxmix {

const char* const kLibraryFile = "QXMIX.dll";

std::vector<std::string> LibraryPlaces() {
    wchar_t tool[MAX_PATH] = L"";
    GetModuleFileNameW(nullptr, tool, MAX_PATH);
    return {(std::filesystem::path(tool).parent_path() / kLibraryFile).string()};
}

}  // namespace qxmix
