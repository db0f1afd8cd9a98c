#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>

/// The ordinary allocator, whose memory is not cleared.
struct OrdinaryAllocator {};

/// @return null without memory, and then nothing is constructed: the module has no throwing
///   allocation.
inline void* operator new(std::size_t size, OrdinaryAllocator) noexcept {
    return std::malloc(size);
}

/// Creates an object; the bytes that its constructor does not write keep what the allocator left.
///
/// @return null without memory.
template <typename Object, typename... Arguments>
Object* CreateObject(Arguments... arguments) noexcept {
    return new (OrdinaryAllocator{}) Object(arguments...);
}

constexpr std::uint32_t kFreeStorage = 1;  ///< flag of Destroy: free the storage too

/// Frees the storage of a destroyed object when the flags ask for it.
///
/// @return the object's address, freed or not.
inline void* ReleaseStorage(void* object, std::uint32_t flags) noexcept {
    if ((flags & kFreeStorage) != 0) {
        std::free(object);
    }
    return object;  // NOLINT(clang-analyzer-unix.Malloc): the address, not what was there
}
