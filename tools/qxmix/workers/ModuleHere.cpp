#include "ModuleHere.h"

#include "ModuleCall.h"
#include "module/RegistryImage.h"

namespace qxmix {

namespace {

std::unique_ptr<ModuleLibrary> OpenIn(const OpenOrder& order) {
    LoadRegistry(order.registry);
    return std::make_unique<ModuleLibrary>(order.library);
}

}  // namespace

ModuleHere::ModuleHere(const OpenOrder& order)
    : library_(OpenIn(order)), opening_(OpeningOf(*library_)) {
}

Reply ModuleHere::Answer(const MixRequest& request, Milliseconds deadline) {
    watch_.Begin(deadline);
    Calculation calculation = CallModule(*library_, request, nullptr, nullptr);
    watch_.End(calculation.took);
    return ReplyWith(std::move(calculation));
}

std::shared_ptr<OpenedModule> LastModuleHere::For(const OpenOrder& order) {
    if (module_ == nullptr || order.library != order_.library ||
        order.registry != order_.registry) {
        module_.reset();  // there is one watch at a time
        module_ = std::make_shared<ModuleHere>(order);
        ++count_;
        order_ = {order.library, order.registry};
    } else {
        LoadRegistry(order.registry);
    }
    return module_;
}

}  // namespace qxmix
