#pragma once

#include <cstdint>

namespace reference {

/// Little-endian integers at any address, put together byte by byte.
inline std::uint16_t ReadU16(const std::uint8_t* at) {
    return static_cast<std::uint16_t>(at[0] + 256U * at[1]);
}

inline std::int16_t ReadS16(const std::uint8_t* at) {
    return static_cast<std::int16_t>(ReadU16(at));
}

inline std::uint32_t ReadU32(const std::uint8_t* at) {
    return ReadU16(at) + 65536U * ReadU16(at + 2);
}

inline void WriteU16(std::uint8_t* at, std::uint16_t value) {
    at[0] = static_cast<std::uint8_t>(value % 256U);
    at[1] = static_cast<std::uint8_t>(value / 256U);
}

inline void WriteU32(std::uint8_t* at, std::uint32_t value) {
    WriteU16(at, static_cast<std::uint16_t>(value % 65536U));
    WriteU16(at + 2, static_cast<std::uint16_t>(value / 65536U));
}

}  // namespace reference
