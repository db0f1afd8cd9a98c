#include "workers/SharedMemory.h"

#include "errors/Errors.h"

#include <cerrno>
#include <cstring>
#include <string>
#include <sys/mman.h>

namespace qxmix {

SharedMemory::SharedMemory(std::size_t size)
    : bytes_(mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0)),
      size_(size) {
    if (bytes_ == MAP_FAILED) {
        throw WorkError(std::string("no shared memory: ") + std::strerror(errno));
    }
}

SharedMemory::~SharedMemory() {
    if (bytes_ != nullptr) {
        munmap(bytes_, size_);
    }
}

}  // namespace qxmix
