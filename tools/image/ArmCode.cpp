#include "ArmCode.h"

namespace image::arm {

namespace {

constexpr unsigned Field(std::uint32_t word, unsigned at) {
    return (word >> at) & 0xFU;
}

constexpr bool Has(std::uint32_t word, unsigned bit) {
    return (word & Bit(bit)) != 0;
}

/// Loads and stores of one register, whose address may be kept.
bool TransferWrites(std::uint32_t word, unsigned changed) {
    const bool keepsAddress = !Has(word, 24) || Has(word, 21);
    return (Has(word, 20) && Field(word, 12) == changed) ||
           (keepsAddress && Field(word, 16) == changed);
}

/// The multiplications, swaps and short transfers that share the numbers of arithmetic.
bool ExtensionWrites(std::uint32_t word, unsigned changed) {
    if ((word & 0x60U) != 0) {  // half-words and signed bytes
        return TransferWrites(word, changed);
    }
    if (Has(word, 24)) {  // swap
        return Field(word, 12) == changed;
    }
    const bool isLong = Has(word, 23);
    return Field(word, 16) == changed || (isLong && Field(word, 12) == changed);
}

bool ArithmeticWrites(std::uint32_t word, unsigned changed) {
    constexpr unsigned kFirstTest = 8;
    constexpr unsigned kLastTest = 11;
    const unsigned operation = Field(word, 21);
    const bool isTest = operation >= kFirstTest && operation <= kLastTest && Has(word, 20);
    return !isTest && Field(word, 12) == changed;
}

}  // namespace

bool Writes(std::uint32_t word, unsigned changed) {
    const bool isExtension = (word & 0x0E000090U) == 0x00000090U;
    const bool exchanges = (word & 0x0FFFFFF0U) == 0x012FFF10U;
    switch ((word >> 25U) & 7U) {
    case 0:
        if (exchanges) {
            return false;
        }
        return isExtension ? ExtensionWrites(word, changed) : ArithmeticWrites(word, changed);
    case 1:
        return ArithmeticWrites(word, changed);
    case 2:
        return TransferWrites(word, changed);
    case 3:
        return !Has(word, 4) && TransferWrites(word, changed);  // with the bit: no instruction
    case 4:
        return (Has(word, 20) && Has(word, changed)) ||
               (Has(word, 21) && Field(word, 16) == changed);
    case 5:
        return IsCall(word) && changed == kReturnAddress;
    default:
        return false;
    }
}

}  // namespace image::arm
