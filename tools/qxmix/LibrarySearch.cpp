#include "LibrarySearch.h"

#include "Errors.h"

#include <cstdlib>
#include <filesystem>

namespace qxmix {

namespace {

namespace fs = std::filesystem;

constexpr const char* kLibraryFile = "libQXMIX.so";

fs::path ToolFolder() {
    std::error_code error;
    return fs::read_symlink("/proc/self/exe", error).parent_path();
}

/// The loader takes a name without a folder as one to search for; a person means the file.
std::string AsFile(const std::string& named) {
    std::error_code error;
    if (!fs::exists(named, error)) {
        throw WorkError(named + ": no such library");
    }
    return fs::absolute(named).string();
}

}  // namespace

std::string FindLibrary(const std::string& named) {
    if (!named.empty()) {
        return AsFile(named);
    }
    const char* const configured = std::getenv("QXMIX_LIBRARY");
    if (configured != nullptr && *configured != '\0') {
        return AsFile(configured);
    }
    // Relative to the tool, so that an installed tree may be moved.
    for (const char* folder : {".", QXMIX_INSTALL_LIBRARY_FOLDER, QXMIX_BUILD_LIBRARY_FOLDER}) {
        std::error_code error;
        const fs::path file = (ToolFolder() / folder / kLibraryFile).lexically_normal();
        if (fs::exists(file, error)) {
            return file.string();
        }
    }
    return kLibraryFile;
}

std::string FileNameOf(const std::string& path) {
    return fs::path(path).filename().string();
}

}  // namespace qxmix
