#include "PlatformApi.h"

/// What the system calls when it loads and unloads the library, and for threads that start and end.
///
/// There is nothing to start or to clean up, and the objects are the host's business: an instance
/// that a host has not deleted stays allocated.
///
/// @return 1: the library may be loaded.
extern "C" BOOL LibraryEntry(HANDLE library, DWORD reason, void* reserved) noexcept;

BOOL LibraryEntry(HANDLE, DWORD, void*) noexcept {
    return 1;
}
