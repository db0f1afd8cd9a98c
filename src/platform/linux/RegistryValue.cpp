#include "RegistryValue.h"

#include "HostControl.h"
#include "TextEncoding.h"

#include <algorithm>

RegistryValue TextValue(std::u16string text) {
    text.push_back(u'\0');
    return {kQxmixRegSz, LittleEndianBytes(text)};
}

RegistryValue NumberValue(std::uint32_t number) {
    RegistryValue value{kQxmixRegDword, {}};
    for (unsigned shift = 0; shift < 32; shift += 8) {
        value.bytes.push_back(static_cast<std::uint8_t>((number >> shift) & 0xFFU));
    }
    return value;
}

std::int32_t GiveValue(const RegistryValue& value,
                       std::uint32_t* type,
                       std::uint8_t* bytes,
                       std::uint32_t* size) noexcept {
    if (type != nullptr) {
        *type = value.type;
    }
    const bool fits = bytes == nullptr || *size >= value.bytes.size();
    if (bytes != nullptr && fits) {
        std::copy(value.bytes.begin(), value.bytes.end(), bytes);
    }
    if (size != nullptr) {
        *size = static_cast<std::uint32_t>(value.bytes.size());
    }
    return fits ? 0 : kQxmixErrorMoreData;
}
