#pragma once

/// The functions of the terminal's system and of the XFS manager that the module calls.
///
/// Same names, shapes and constants on every platform; PlatformContract.md says what each does.
/// On the device the system's libraries supply them: Imports.S names which.

#include <cstdint>

using LONG = std::int32_t;
using BOOL = std::int32_t;
using HRESULT = std::int32_t;
using DWORD = std::uint32_t;
using ULONG = std::uint32_t;
using REGSAM = std::uint32_t;
using HANDLE = void*;
using HKEY = struct HKEY__*;
using PlatformChar = char16_t;  ///< 16 bits on every platform

/// Wide text of the platform.
#define TEXT(text) u##text

// Source of the constants: the Windows API and the XFS manager's public header.
inline const HKEY HKEY_CLASSES_ROOT = reinterpret_cast<HKEY>(0x80000000U);
inline const HKEY HKEY_LOCAL_MACHINE = reinterpret_cast<HKEY>(0x80000002U);
constexpr LONG ERROR_SUCCESS = 0;
constexpr DWORD REG_SZ = 1;
constexpr REGSAM KEY_READ = 0x20019;
constexpr REGSAM KEY_ALL_ACCESS = 0xF003F;
constexpr DWORD EVENT_SET = 3;
constexpr ULONG WFS_MEM_SHARE = 1;
constexpr ULONG WFS_MEM_ZEROINIT = 2;

extern "C" {
LONG RegOpenKeyExW(HKEY key,
                   const PlatformChar* subKey,
                   DWORD options,
                   REGSAM access,
                   HKEY* opened);
LONG RegCreateKeyExW(HKEY key,
                     const PlatformChar* subKey,
                     DWORD reserved,
                     PlatformChar* keyClass,
                     DWORD options,
                     REGSAM access,
                     void* securityAttributes,
                     HKEY* opened,
                     DWORD* disposition);
LONG RegQueryValueExW(HKEY key,
                      const PlatformChar* valueName,
                      DWORD* reserved,
                      DWORD* type,
                      std::uint8_t* bytes,
                      DWORD* size);
LONG RegSetValueExW(HKEY key,
                    const PlatformChar* valueName,
                    DWORD reserved,
                    DWORD type,
                    const std::uint8_t* bytes,
                    DWORD size);
LONG RegCloseKey(HKEY key);
BOOL EventModify(HANDLE event, DWORD operation);
HRESULT WFMAllocateBuffer(ULONG size, ULONG flags, void** block);
HRESULT WFMAllocateMore(ULONG size, void* original, void** block);
}
