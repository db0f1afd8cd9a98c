#pragma once

#include "MixAlgorithm.h"

namespace qxmix {

/// For an object of this process's own module: a host that is told of it and minds nothing.
class NoHost final : public MixAlgorithmHost {
public:
    void Reserved() noexcept override {}
    std::int32_t OnObjectCreated(IMixAlgorithm*) noexcept override { return 0; }
};

}  // namespace qxmix
