#include "PlatformApi.h"

/// What the system calls when it loads and unloads the library, and for threads that start and end.
///
/// There is nothing to start or to clean up, and the objects are the host's business: an instance
/// that a host has not deleted stays allocated.
///
/// @return TRUE: the library may be loaded.
extern "C" BOOL WINAPI LibraryEntry(HINSTANCE library, DWORD reason, void* reserved) noexcept;

BOOL WINAPI LibraryEntry(HINSTANCE, DWORD, void*) noexcept {
    return TRUE;
}
