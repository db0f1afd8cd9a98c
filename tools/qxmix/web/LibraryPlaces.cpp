#include "module/LibraryPlaces.h"

namespace qxmix {

// What answers call the module, here as elsewhere.
const char* const kLibraryFile = "libQXMIX.so";

std::vector<std::string> LibraryPlaces() {
    return {};  // it is a part of the tool
}

}  // namespace qxmix
