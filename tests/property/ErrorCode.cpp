#include "ErrorCode.h"

#include <cstdint>

#include "HostControl.h"

namespace property {
namespace {

constexpr char kKey[] = "HKEY_LOCAL_MACHINE\\SOFTWARE\\ATM\\ErrorCode";
constexpr char kName[] = "CDM";

}  // namespace

std::string TakeErrorCode() {
    char bytes[16];
    std::uint32_t size = sizeof bytes;
    const std::int32_t result = QxmixRegistryGetValue(kKey, kName, nullptr, bytes, &size);
    if (result == kQxmixErrorFileNotFound) {
        return "";
    }
    QxmixRegistryDeleteValue(kKey, kName);
    return result == 0 ? std::string(bytes, size) : "unreadable";
}

}  // namespace property
