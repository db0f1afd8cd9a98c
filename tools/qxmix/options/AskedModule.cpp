#include "AskedModule.h"

#include "module/LibrarySearch.h"
#include "module/RegistryImage.h"

namespace qxmix {

namespace {

OpenOrder OrderOf(const std::string& library,
                  const CommonOptions& options,
                  Dispenser& dispenser,
                  const OpenHere& here) {
    const std::string registry = options.RegistryOr(dispenser.registry);
    dispenser.registry = TakenValues(registry);
    OpenOrder order{FindLibrary(library), registry};
    if (here != nullptr) {
        order.here = here(order);
    }
    return order;
}

}  // namespace

AskedModule::AskedModule(const std::string& library,
                         const CommonOptions& options,
                         Dispenser& dispenser,
                         const OpenHere& here)
    : order(OrderOf(library, options, dispenser, here)), asker(order, options.Trace()) {
}

void AskedModule::Open() {
    asker.Open();
    asker.KeepRegistry();
}

}  // namespace qxmix
