#pragma once

/// The functions of the terminal's system and of the XFS manager that the module calls.
///
/// Same names, shapes and constants on every platform; PlatformContract.md says what each does.
/// Desktop Windows supplies the registry and this folder EventModify, which only the device's
/// system has.

#ifndef UNICODE
#define UNICODE  // TEXT gives 16-bit characters
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

using PlatformChar = wchar_t;  ///< 16 bits on every platform

// Source of the constants: the device's system and the XFS manager's public header.
constexpr DWORD EVENT_SET = 3;
constexpr ULONG WFS_MEM_SHARE = 1;
constexpr ULONG WFS_MEM_ZEROINIT = 2;

extern "C" {
BOOL EventModify(HANDLE event, DWORD operation);
__declspec(dllimport) HRESULT WINAPI WFMAllocateBuffer(ULONG size, ULONG flags, void** block);
__declspec(dllimport) HRESULT WINAPI WFMAllocateMore(ULONG size, void* original, void** block);
}
