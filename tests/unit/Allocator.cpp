#include "Allocator.h"

#include <cstdlib>
#include <cstring>

namespace {

Allocator* current = nullptr;

}  // namespace

// The linker's names: what it calls instead of malloc and free, and what these two really are.
extern "C" {
void* __real_malloc(std::size_t size);  // NOLINT(bugprone-reserved-identifier)
void __real_free(void* memory);         // NOLINT(bugprone-reserved-identifier)
void* __wrap_malloc(std::size_t size);  // NOLINT(bugprone-reserved-identifier)
void __wrap_free(void* memory);         // NOLINT(bugprone-reserved-identifier)
}

void* __wrap_malloc(std::size_t size) {
    if (current == nullptr) {
        return __real_malloc(size);
    }
    current->asked.push_back(size);
    void* const memory = current->TakesFailure() ? nullptr : __real_malloc(size);
    if (memory != nullptr) {
        std::memset(memory, Allocator::kUnwrittenByte, size);
    }
    return memory;
}

void __wrap_free(void* memory) {
    if (current != nullptr) {
        current->freed.push_back(memory);
    }
    __real_free(memory);
}

Allocator::Allocator() {
    current = this;
}

Allocator::~Allocator() {
    current = nullptr;
}
