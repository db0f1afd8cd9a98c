#include <cstdint>

/// Arithmetic that the processor lacks and the compiler calls by these names, numbers of floating
/// point as their bits.
///
/// The compiler's own library has all of it. It takes from there what is left out here: routines
/// that keep no frame, or one that the system can unwind. Those below are written anew because the
/// library's move the stack pointer halfway, and an exception could not find its way out of a
/// caller. Source of the names and shapes: the run-time ABI for the ARM architecture.
extern "C" {
/// The double of a number, and of a number of single precision.
std::uint64_t __aeabi_ui2d(std::uint32_t value) noexcept;
std::uint64_t __aeabi_f2d(std::uint32_t single) noexcept;

/// 1 when it holds; 0 otherwise, and when a side is not a number.
int __aeabi_fcmplt(std::uint32_t left, std::uint32_t right) noexcept;
int __aeabi_fcmpgt(std::uint32_t left, std::uint32_t right) noexcept;
}

namespace {

constexpr std::uint32_t kSign = 0x80000000;
constexpr std::uint32_t kInfinity = 0x7F800000;
constexpr std::uint32_t kSmallestNormal = 0x00800000;
constexpr unsigned kSingleBias = 127;
constexpr unsigned kDoubleBias = 1023;
constexpr unsigned kSingleMantissa = 23;
constexpr unsigned kDoubleMantissa = 52;

/// An exponent where a double keeps it.
constexpr std::uint64_t ExponentOfDouble(unsigned exponent) noexcept {
    return std::uint64_t{exponent} << kDoubleMantissa;
}

bool IsNumber(std::uint32_t single) noexcept {
    return (single & ~kSign) <= kInfinity;
}

/// Rises with the number; both zeros have the same place.
std::uint32_t PlaceOf(std::uint32_t single) noexcept {
    return (single & kSign) != 0 ? kSign - (single & ~kSign) : kSign + single;
}

}  // namespace

std::uint64_t __aeabi_ui2d(std::uint32_t value) noexcept {
    if (value == 0) {
        return 0;
    }
    const auto shift = static_cast<unsigned>(__builtin_clz(value));
    const std::uint32_t behindFirst = (value << shift) & ~kSign;
    return ExponentOfDouble(kDoubleBias + 31 - shift) +
           (std::uint64_t{behindFirst} << (kDoubleMantissa - 31));
}

std::uint64_t __aeabi_f2d(std::uint32_t single) noexcept {
    constexpr unsigned kWider = kDoubleMantissa - kSingleMantissa;
    const std::uint64_t sign = std::uint64_t{single & kSign} << 32U;
    const std::uint32_t size = single & ~kSign;
    if (size == 0) {
        return sign;
    }
    if (size < kSmallestNormal) {  // a whole number of the smallest steps
        return sign | (__aeabi_ui2d(size) - ExponentOfDouble(kSingleBias - 1 + kSingleMantissa));
    }
    const unsigned toBias = size < kInfinity ? kDoubleBias - kSingleBias : 0x7FFU - 0xFFU;
    return sign | ((std::uint64_t{size} << kWider) + ExponentOfDouble(toBias));
}

int __aeabi_fcmplt(std::uint32_t left, std::uint32_t right) noexcept {
    return IsNumber(left) && IsNumber(right) && PlaceOf(left) < PlaceOf(right) ? 1 : 0;
}

int __aeabi_fcmpgt(std::uint32_t left, std::uint32_t right) noexcept {
    return __aeabi_fcmplt(right, left);
}
