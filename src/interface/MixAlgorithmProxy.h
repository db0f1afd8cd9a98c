#pragma once

#include "ObjectLayout.h"
#include "Records.h"

/// The object that the host holds: it forwards to the object that calculates.
class MixAlgorithmProxy final : public IMixAlgorithm, public MixAlgorithmProxyFields {
public:
    /// Calls the host back with this object, then creates the inner one, which does the same.
    /// Without memory for the inner object `inner` is null, and nobody is told.
    explicit MixAlgorithmProxy(MixAlgorithmHost* host) noexcept;

    /// Destroys this object only: the inner one and the event stay as they are.
    void* Destroy(std::uint32_t flags) noexcept override;

    /// Sets the host's event, then asks the inner object.
    std::int32_t GetMixTypes(WFSCDMMIXTYPE*** list) noexcept override;

    std::int32_t MixCalculate(MixRequest* request, MixResult* result) noexcept override;
};

EXPECT_OBJECT_SIZE(MixAlgorithmProxy, 116);
