#include "Hex.h"

#include <algorithm>

namespace qxmix {

namespace {

constexpr const char* kHexDigits = "0123456789abcdef";

unsigned Nibble(char digit) {
    const bool isLetter = digit > '9';
    // The letters of either case differ in one bit only.
    return isLetter ? (static_cast<unsigned>(digit) | 0x20U) - 'a' + 10U
                    : static_cast<unsigned>(digit - '0');
}

}  // namespace

std::string HexText(const std::string& bytes) {
    std::string hex;
    for (const char byte : bytes) {
        const auto value = static_cast<unsigned char>(byte);
        hex += kHexDigits[value >> 4U];
        hex += kHexDigits[value & 0xFU];
    }
    return hex;
}

std::string BytesOfHex(const std::string& hex) {
    std::string bytes;
    for (std::size_t digit = 0; digit + 1 < hex.size(); digit += 2) {
        bytes += static_cast<char>((Nibble(hex[digit]) << 4U) | Nibble(hex[digit + 1]));
    }
    return bytes;
}

bool IsHex(const std::string& text) {
    return text.size() % 2 == 0 &&
           text.find_first_not_of("0123456789abcdefABCDEF") == std::string::npos;
}

}  // namespace qxmix
