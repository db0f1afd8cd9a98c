#include "MixAlgorithm.h"
#include "ObjectLife.h"

IMixAlgorithm::~IMixAlgorithm() noexcept {
    // A destroyed object whose storage lives on must really carry the slots of the bare interface.
    // The compiler has stored them by now, and would drop the store as one to a dead object.
    asm volatile("" : : "r"(this) : "memory");
}

void* IMixAlgorithm::Destroy(std::uint32_t flags) noexcept {
    this->IMixAlgorithm::~IMixAlgorithm();
    return ReleaseStorage(this, flags);
}
