#pragma once

#include <cstdint>

namespace reference {

/// The correctly rounded double nearest to 10 to the power of exponent (0 to 32768); infinity where
/// no double is large enough.
double PowerOfTen(int exponent);

/// Cuts off the fraction and takes what is left modulo 2^32; infinite and not a number give 0.
std::uint32_t ToU32(double number);

/// The same 32 bits read as a signed number.
inline std::int32_t Signed(std::uint32_t bits) {
    return static_cast<std::int32_t>(bits);
}

/// Distance from 0 of a wrapped difference read as a signed number; 2^31 for -2^31.
inline std::uint32_t Absolute(std::uint32_t bits) {
    return Signed(bits) < 0 ? 0U - bits : bits;
}

}  // namespace reference
