#pragma once

#include <cstdint>
#include <cstring>

/// The lossy conversions, each with a defined answer for every input, the same on every processor.

/// The low 32 bits read as a signed number.
inline std::int32_t AsSigned(std::uint32_t value) noexcept {
    return static_cast<std::int32_t>(value);
}

/// The nearest number of single precision.
inline float SingleOf(std::uint32_t value) noexcept {
    return static_cast<float>(value);
}

/// Truncates towards zero, then takes the result modulo 2^32; infinite or not a number gives 0.
///
/// Taken from the bits of the number, because processors and compilers disagree on conversions that
/// do not fit.
inline std::uint32_t TruncateToU32(double value) noexcept {
    std::uint64_t bits{};
    static_assert(sizeof(bits) == sizeof(value));
    std::memcpy(&bits, &value, sizeof(bits));
    constexpr int kMantissaBits = 52;
    constexpr int kExponentBias = 1023 + kMantissaBits;
    const int exponent = static_cast<int>((bits >> kMantissaBits) & 0x7FFU) - kExponentBias;
    const std::uint64_t mantissa =
        (bits & ((std::uint64_t{1} << kMantissaBits) - 1)) | (std::uint64_t{1} << kMantissaBits);
    // 32 and above: a multiple of 2^32, infinite, or not a number.
    if (exponent < -kMantissaBits || exponent >= 32) {
        return 0;
    }
    const auto magnitude =
        static_cast<std::uint32_t>(exponent < 0 ? mantissa >> -exponent : mantissa << exponent);
    const bool isNegative = (bits >> 63U) != 0;
    return isNegative ? 0U - magnitude : magnitude;
}

/// The number multiplied by ten to the given power, in double precision, truncated.
///
/// @param power  0 and above.
inline std::uint32_t ScaleByPowerOfTen(std::uint32_t value, int power) noexcept {
    // The correctly rounded doubles, our own because the C libraries differ in the last bit. From
    // 10^26 on a product is a multiple of 2^32 or infinite: nothing of it is left.
    static constexpr double kPowersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,
                                              1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15, 1e16, 1e17,
                                              1e18, 1e19, 1e20, 1e21, 1e22, 1e23, 1e24, 1e25};
    constexpr int kPowers = sizeof(kPowersOfTen) / sizeof(kPowersOfTen[0]);
    return power < kPowers ? TruncateToU32(static_cast<double>(value) * kPowersOfTen[power]) : 0;
}
