#include "ModuleLibrary.h"

#include "LibrarySearch.h"
#include "SharedLibrary.h"
#include "errors/Errors.h"

namespace qxmix {

namespace {

/// The fields stand right behind the pointer to the slots.
void* FieldsOf(IMixAlgorithm* object) {
    return reinterpret_cast<char*>(object) + sizeof(void*);
}

void* RequireExport(void* library, const std::string& file, const char* name) {
    void* const address = FindExport(library, name);
    if (address == nullptr) {
        throw WorkError(file + ": exports no " + name);
    }
    return address;
}

}  // namespace

std::int32_t ModuleHost::OnObjectCreated(IMixAlgorithm* object) noexcept {
    if (outer_ == nullptr) {
        outer_ = object;
        // The event is the host's to set up, and what stands there otherwise is arbitrary.
        static_cast<MixAlgorithmProxyFields*>(FieldsOf(object))->hMixTypesEvent = nullptr;
    } else {
        inner_ = object;
    }
    return 0;
}

ModuleLibrary::ModuleLibrary(const std::string& file) : isOwn_(IsOwnLibrary(file)) {
    void* const library = OpenSharedLibrary(file);
    using CreateFunction = IMixAlgorithm* (*)(MixAlgorithmHost*);
    void* const create = RequireExport(library, file, "CreateMixAlgorithm");
    RequireExport(library, file, "DeleteMixAlgorithm");
    algorithm_ = reinterpret_cast<CreateFunction>(create)(&host_);
    if (algorithm_ == nullptr) {
        throw WorkError(file + ": CreateMixAlgorithm gave no object");
    }
}

const MixAlgorithmFields* ModuleLibrary::Configuration() const {
    return host_.Inner() == nullptr
               ? nullptr
               : static_cast<const MixAlgorithmFields*>(FieldsOf(host_.Inner()));
}

}  // namespace qxmix
