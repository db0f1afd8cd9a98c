#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>

/// Storage of the ordinary allocator, not cleared.
struct ObjectStorage {
    void* memory;
};

/// Constructs in storage that is known to be there: the module has no throwing allocation.
inline void* operator new(std::size_t, ObjectStorage storage) noexcept {
    return storage.memory;
}

/// Creates an object; the bytes that its constructor does not write keep what the allocator left.
///
/// @return null without memory.
template <typename Object, typename... Arguments>
Object* CreateObject(Arguments... arguments) noexcept {
    const ObjectStorage storage{std::malloc(sizeof(Object))};
    return storage.memory != nullptr ? new (storage) Object(arguments...) : nullptr;
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
