#include "module/LibraryPlaces.h"

#include <filesystem>

namespace qxmix {

const char* const kLibraryFile = "libQXMIX.so";

std::vector<std::string> LibraryPlaces() {
    namespace fs = std::filesystem;
    std::error_code error;
    const fs::path tool = fs::read_symlink("/proc/self/exe", error).parent_path();
    std::vector<std::string> places;
    // Relative to the tool, so that an installed tree may be moved.
    for (const char* folder : {".", QXMIX_LIBRARY_FOLDER}) {
        places.push_back((tool / folder / kLibraryFile).lexically_normal().string());
    }
    return places;
}

}  // namespace qxmix
