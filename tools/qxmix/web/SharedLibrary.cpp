#include "module/SharedLibrary.h"

#include "MixAlgorithm.h"
#include "errors/Errors.h"
#include "module/LibraryPlaces.h"

#include <cstring>

namespace qxmix {

void* OpenSharedLibrary(const std::string& file) {
    static char module;  // its address stands for the one library that there is
    if (file != kLibraryFile) {
        throw WorkError(file + ": cannot be loaded: a page has its own module only");
    }
    return &module;
}

void* FindExport(void*, const char* name) {
    if (std::strcmp(name, "CreateMixAlgorithm") == 0) {
        return reinterpret_cast<void*>(&CreateMixAlgorithm);
    }
    return std::strcmp(name, "DeleteMixAlgorithm") == 0
               ? reinterpret_cast<void*>(&DeleteMixAlgorithm)
               : nullptr;
}

std::string StatedVersion(const std::string&) {
    return "";  // the module tells it as a trace line
}

}  // namespace qxmix
