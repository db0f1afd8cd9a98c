#include "LibrarySearch.h"

#include "LibraryPlaces.h"
#include "errors/Errors.h"

#include <cstdlib>
#include <filesystem>

namespace qxmix {

namespace {

namespace fs = std::filesystem;

/// The loader takes a name without a folder as one to search for; a person means the file.
std::string AsFile(const std::string& named) {
    std::error_code error;
    if (!fs::exists(named, error)) {
        throw WorkError(named + ": no such library");
    }
    return fs::absolute(named).string();
}

std::string OwnLibrary() {
    for (const std::string& file : LibraryPlaces()) {
        std::error_code error;
        if (fs::exists(file, error)) {
            return file;
        }
    }
    return kLibraryFile;
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
    return OwnLibrary();
}

bool IsOwnLibrary(const std::string& file) {
    return file == OwnLibrary();
}

std::string FileNameOf(const std::string& path) {
    return fs::path(path).filename().string();
}

}  // namespace qxmix
