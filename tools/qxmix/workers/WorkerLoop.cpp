#include "WorkerLoop.h"

#include "HostControl.h"
#include "ModuleCall.h"
#include "WorkerMessages.h"
#include "errors/Errors.h"
#include "module/RegistryImage.h"

#include <memory>

namespace qxmix {

namespace {

void SendTraceLine(void* channel, const char* line) {
    static_cast<Channel*>(channel)->Send(ToMessage(MessageKind::TraceLine, line));
}

Catalogue ListTypes(ModuleLibrary& library) {
    WFSCDMMIXTYPE** list = nullptr;
    Catalogue catalogue;
    catalogue.returned = library.Algorithm().GetMixTypes(&list);
    for (WFSCDMMIXTYPE** entry = list; entry != nullptr && *entry != nullptr; ++entry) {
        ++catalogue.recordCount;
        if (catalogue.returned == 0) {
            const WFSCDMMIXTYPE& type = **entry;
            const char* const name = type.lpszName;
            catalogue.entries.push_back(
                {type.usMixNumber, type.usMixType, type.usSubType, name == nullptr ? "" : name});
        }
    }
    WFMFreeBuffer(list);
    return catalogue;
}

Message CarryOut(ModuleLibrary& library, const Message& order, Channel& channel, const Job& job) {
    switch (KindOf(order)) {
    case MessageKind::Calculate: {
        const CalculateOrder calculate = ReadCalculateOrder(order);
        return ToMessage(CallModule(library, calculate.request,
                                    calculate.trace ? &SendTraceLine : nullptr, &channel));
    }
    case MessageKind::ListTypes:
        return ToMessage(ListTypes(library));
    case MessageKind::SaveRegistry:
        return ToMessage(MessageKind::Registry, SaveRegistry());
    case MessageKind::Job:
        if (job != nullptr) {
            return ToMessage(MessageKind::Reported, job(order.bytes));
        }
        [[fallthrough]];
    default:
        throw WorkError("an order that no worker knows");
    }
}

/// @return null after having told that the library cannot be used.
std::unique_ptr<ModuleLibrary> Open(const OpenOrder& order, Channel& channel) {
    try {
        LoadRegistry(order.registry);
        const TraceListening listening(&SendTraceLine, &channel);
        auto library = std::make_unique<ModuleLibrary>(order.library);
        return library;
    } catch (const ToolError& error) {
        channel.Send(ToMessage(MessageKind::Broken, error.what()));
        return nullptr;
    }
}

}  // namespace

void RunWorker(Channel& channel, const Job& job) {
    Message order;
    if (channel.Receive(order, std::nullopt) != Channel::State::Received) {
        return;
    }
    const std::unique_ptr<ModuleLibrary> library = Open(ReadOpenOrder(order), channel);
    if (library == nullptr || !channel.Send(ToMessage(OpeningOf(*library)))) {
        return;
    }
    while (channel.Receive(order, std::nullopt) == Channel::State::Received) {
        if (!channel.Send(CarryOut(*library, order, channel, job))) {
            return;
        }
    }
}

}  // namespace qxmix
