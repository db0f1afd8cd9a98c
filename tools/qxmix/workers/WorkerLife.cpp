#include "WorkerLife.h"

#include "HostControl.h"
#include "ModuleCall.h"
#include "WorkerMessages.h"
#include "errors/Errors.h"
#include "module/RegistryImage.h"

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

}  // namespace

bool WorkerLife::CarryOut(const Message& order) {
    return library_ == nullptr ? Open(order) : channel_.Send(AnswerTo(order));
}

bool WorkerLife::Open(const Message& message) {
    const OpenOrder order = ReadOpenOrder(message);
    try {
        LoadRegistry(order.registry);
        const TraceListening listening(&SendTraceLine, &channel_);
        library_ = std::make_unique<ModuleLibrary>(order.library);
    } catch (const ToolError& error) {
        channel_.Send(ToMessage(MessageKind::Broken, error.what()));
        return false;
    }
    return channel_.Send(ToMessage(OpeningOf(*library_)));
}

Message WorkerLife::AnswerTo(const Message& order) {
    switch (KindOf(order)) {
    case MessageKind::Calculate: {
        const CalculateOrder calculate = ReadCalculateOrder(order);
        return ToMessage(CallModule(*library_, calculate.request,
                                    calculate.trace ? &SendTraceLine : nullptr, &channel_));
    }
    case MessageKind::ListTypes:
        return ToMessage(ListTypes(*library_));
    case MessageKind::SaveRegistry:
        return ToMessage(MessageKind::Registry, SaveRegistry());
    case MessageKind::Job:
        if (job_ != nullptr) {
            return ToMessage(MessageKind::Reported,
                             job_(order.bytes, [this](const std::string& part) {
                                 channel_.Send(ToMessage(MessageKind::Part, part));
                             }));
        }
        [[fallthrough]];
    default:
        throw WorkError("an order that no worker knows");
    }
}

}  // namespace qxmix
