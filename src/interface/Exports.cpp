#include "MixAlgorithmProxy.h"
#include "ObjectLife.h"

namespace {

/// The pair that the last CreateMixAlgorithm made, or null.
IMixAlgorithm* currentInstance = nullptr;

}  // namespace

IMixAlgorithm* CreateMixAlgorithm(MixAlgorithmHost* host) {
    currentInstance = CreateObject<MixAlgorithmProxy>(host);
    return currentInstance;
}

void DeleteMixAlgorithm() {
    if (currentInstance != nullptr) {
        currentInstance->Destroy(kFreeStorage);
        currentInstance = nullptr;
    }
}
