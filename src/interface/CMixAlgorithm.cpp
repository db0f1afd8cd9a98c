#include "CMixAlgorithm.h"

#include "MixPlans.h"
#include "ObjectLife.h"
#include "Trace.h"
#include "Version.h"

CMixAlgorithm::CMixAlgorithm(MixAlgorithmHost* host) noexcept {
    self = this;
    host->OnObjectCreated(this);
    usNumMixTypes = kMixCount;
    usFirstMixNumber = 1;
    usLastMixNumber = kMixCount;
    ReadTraceLevel();
    Trace("CMixAlgorithm::CMixAlgorithm() MixAlgorithm.dll Version = %s.", QXMIX_VERSION_TEXT);
    ReadCstMinimum4Mix6();
}

void* CMixAlgorithm::Destroy(std::uint32_t flags) noexcept {
    this->~CMixAlgorithm();
    return ReleaseStorage(this, flags);
}
