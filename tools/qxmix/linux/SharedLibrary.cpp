#include "module/SharedLibrary.h"

#include "errors/Errors.h"

#include <dlfcn.h>

namespace qxmix {

void* OpenSharedLibrary(const std::string& file) {
    void* const library = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) {
        throw WorkError(std::string(dlerror()));
    }
    return library;
}

void* FindExport(void* library, const char* name) {
    return dlsym(library, name);
}

std::string StatedVersion(const std::string&) {
    return "";  // files of this system have no place for one: the module tells it as a trace line
}

}  // namespace qxmix
