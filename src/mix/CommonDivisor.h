#pragma once

#include <cstdint>

/// The greatest common divisor of two numbers, and how the first one makes it modulo the second.
struct CommonDivisor {
    std::uint32_t divisor;
    std::uint32_t factor;  ///< value * factor = divisor modulo `other`; below other / divisor
};

/// @param value, other  not 0.
inline CommonDivisor CommonDivisorOf(std::uint32_t value, std::uint32_t other) noexcept {
    // Euclid's algorithm; every remainder is value * its factor modulo other. The factor of the
    // last one lies within half of other / divisor on either side of 0, so it fits a signed number.
    std::uint32_t remainder = other;
    std::uint32_t nextRemainder = value % other;
    std::uint32_t factor = 0;
    std::uint32_t nextFactor = 1;
    while (nextRemainder != 0) {
        const std::uint32_t quotient = remainder / nextRemainder;
        const std::uint32_t thirdRemainder = remainder - quotient * nextRemainder;
        const std::uint32_t thirdFactor = factor - quotient * nextFactor;
        remainder = nextRemainder;
        nextRemainder = thirdRemainder;
        factor = nextFactor;
        nextFactor = thirdFactor;
    }
    const bool negative = (factor >> 31U) != 0;
    return {remainder, negative ? factor + other / remainder : factor};
}
