#include "LastCode.h"

#include <cstdint>

#include "PlatformApi.h"

namespace property {

std::string lastCode;

}  // namespace property

LONG RegOpenKeyExW(HKEY key, const PlatformChar*, DWORD, REGSAM, HKEY* opened) {
    *opened = key;
    return ERROR_SUCCESS;
}

LONG RegSetValueExW(HKEY,  // NOLINT(readability-function-size) the shape is the system's
                    const PlatformChar*,
                    DWORD,
                    DWORD,
                    const std::uint8_t* bytes,
                    DWORD size) {
    property::lastCode.assign(bytes, bytes + size);
    return ERROR_SUCCESS;
}

LONG RegCloseKey(HKEY) {
    return ERROR_SUCCESS;
}
