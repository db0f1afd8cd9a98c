#include "workers/SharedMemory.h"

namespace qxmix {

// Whoever it is shared with works in this very process.

SharedMemory::SharedMemory(std::size_t size) : bytes_(new char[size]()), size_(size) {
}

SharedMemory::~SharedMemory() {
    delete[] static_cast<char*>(bytes_);
}

}  // namespace qxmix
