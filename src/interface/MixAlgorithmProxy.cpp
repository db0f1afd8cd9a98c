#include "MixAlgorithmProxy.h"

#include "CMixAlgorithm.h"
#include "ObjectLife.h"
#include "PlatformApi.h"

MixAlgorithmProxy::MixAlgorithmProxy(MixAlgorithmHost* host) noexcept {
    self = this;
    host->OnObjectCreated(this);
    inner = CreateObject<CMixAlgorithm>(host);
    usMaxCashUnits = kMaxCashUnits;
}

void* MixAlgorithmProxy::Destroy(std::uint32_t flags) noexcept {
    this->~MixAlgorithmProxy();
    return ReleaseStorage(this, flags);
}

std::int32_t MixAlgorithmProxy::GetMixTypes(WFSCDMMIXTYPE*** list) noexcept {
    EventModify(hMixTypesEvent, EVENT_SET);
    return inner->GetMixTypes(list);
}

std::int32_t MixAlgorithmProxy::MixCalculate(MixRequest* request, MixResult* result) noexcept {
    return inner->MixCalculate(request, result);
}
