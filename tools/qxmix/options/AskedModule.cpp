#include "AskedModule.h"

#include "module/LibrarySearch.h"
#include "module/RegistryImage.h"

namespace qxmix {

namespace {

OpenOrder OrderOf(const std::string& library, const CommonOptions& options, Dispenser& dispenser) {
    const std::string registry = options.RegistryOr(dispenser.registry);
    dispenser.registry = TakenValues(registry);
    return {FindLibrary(library), registry};
}

}  // namespace

AskedModule::AskedModule(const std::string& library,
                         const CommonOptions& options,
                         Dispenser& dispenser)
    : order(OrderOf(library, options, dispenser)),
      asker(order.library, order.registry, options.Trace()) {
}

void AskedModule::Open() {
    asker.Open();
    asker.KeepRegistry();
}

}  // namespace qxmix
