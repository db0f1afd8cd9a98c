#include "TextEncoding.h"

namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsHighSurrogate(char32_t unit) noexcept {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool IsLowSurrogate(char32_t unit) noexcept {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

std::uint8_t ByteAt(std::string_view bytes, std::size_t at) noexcept {
    return static_cast<std::uint8_t>(bytes[at]);
}

bool IsContinuation(std::uint8_t byte) noexcept {
    return (byte & 0xC0U) == 0x80U;
}

struct LeadByte {
    unsigned length;    ///< bytes of the character, 0 for a byte that begins none
    char32_t bits;      ///< what the byte itself contributes
    char32_t smallest;  ///< a smaller character has a shorter form
};

LeadByte ReadLeadByte(std::uint8_t byte) noexcept {
    if (byte < 0x80U) {
        return {1, byte, 0};
    }
    if ((byte & 0xE0U) == 0xC0U) {
        return {2, byte & 0x1FU, 0x80};
    }
    if ((byte & 0xF0U) == 0xE0U) {
        return {3, byte & 0x0FU, 0x800};
    }
    if ((byte & 0xF8U) == 0xF0U) {
        return {4, byte & 0x07U, 0x10000};
    }
    return {0, 0, 0};
}

/// @return length of the character at the place, 0 when the bytes there are no UTF-8.
std::size_t ReadUtf8(std::string_view bytes, std::size_t at, char32_t* character) noexcept {
    const LeadByte lead = ReadLeadByte(ByteAt(bytes, at));
    if (lead.length == 0 || bytes.size() - at < lead.length) {
        return 0;
    }
    char32_t bits = lead.bits;
    for (std::size_t k = 1; k < lead.length; ++k) {
        const std::uint8_t byte = ByteAt(bytes, at + k);
        if (!IsContinuation(byte)) {
            return 0;
        }
        bits = (bits << 6U) | (byte & 0x3FU);
    }
    if (bits < lead.smallest || bits > 0x10FFFF || IsHighSurrogate(bits) || IsLowSurrogate(bits)) {
        return 0;
    }
    *character = bits;
    return lead.length;
}

void AppendUtf16(char32_t character, std::u16string* text) {
    if (character >= 0x10000) {
        const char32_t rest = character - 0x10000;
        text->push_back(static_cast<char16_t>(0xD800 + (rest >> 10U)));
        text->push_back(static_cast<char16_t>(0xDC00 + (rest & 0x3FFU)));
    } else {
        text->push_back(static_cast<char16_t>(character));
    }
}

void AppendUtf8(char32_t character, std::string* text) {
    const auto append = [text](char32_t byte) { text->push_back(static_cast<char>(byte)); };
    const auto continuation = [character](unsigned shift) {
        return 0x80U | ((character >> shift) & 0x3FU);
    };
    if (character < 0x80) {
        append(character);
    } else if (character < 0x800) {
        append(0xC0U | (character >> 6U));
        append(continuation(0));
    } else if (character < 0x10000) {
        append(0xE0U | (character >> 12U));
        append(continuation(6));
        append(continuation(0));
    } else {
        append(0xF0U | (character >> 18U));
        append(continuation(12));
        append(continuation(6));
        append(continuation(0));
    }
}

/// @return number of units of the character at the place, 0 for half a surrogate pair.
std::size_t ReadUtf16(std::u16string_view text, std::size_t at, char32_t* character) noexcept {
    const char32_t unit = text[at];
    if (IsHighSurrogate(unit) && at + 1 < text.size() && IsLowSurrogate(text[at + 1])) {
        *character = 0x10000 + ((unit - 0xD800) << 10U) + (text[at + 1] - char32_t{0xDC00});
        return 2;
    }
    *character = unit;
    return IsHighSurrogate(unit) || IsLowSurrogate(unit) ? 0 : 1;
}

// The numbers 0x80 to 0x9F; all others are the same in Unicode.
constexpr char16_t kWindows1252[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

}  // namespace

std::optional<std::u16string> DecodeUtf8(std::string_view bytes, std::size_t* badAt) {
    std::u16string text;
    for (std::size_t at = 0; at < bytes.size();) {
        char32_t character = 0;
        const std::size_t length = ReadUtf8(bytes, at, &character);
        if (length == 0) {
            if (badAt != nullptr) {
                *badAt = at;
            }
            return std::nullopt;
        }
        AppendUtf16(character, &text);
        at += length;
    }
    return text;
}

std::string EncodeUtf8(std::u16string_view text) {
    std::string bytes;
    for (std::size_t at = 0; at < text.size();) {
        char32_t character = 0;
        const std::size_t units = ReadUtf16(text, at, &character);
        AppendUtf8(units == 0 ? kReplacement : character, &bytes);
        at += units == 0 ? 1 : units;
    }
    return bytes;
}

std::string_view CutUtf8(std::string_view text, std::size_t bytes) noexcept {
    if (text.size() <= bytes) {
        return text;
    }
    while (bytes > 0 && IsContinuation(ByteAt(text, bytes))) {
        --bytes;
    }
    return text.substr(0, bytes);
}

bool IsWellFormedUtf16(std::u16string_view text) noexcept {
    for (std::size_t at = 0; at < text.size();) {
        char32_t character = 0;
        const std::size_t units = ReadUtf16(text, at, &character);
        if (units == 0) {
            return false;
        }
        at += units;
    }
    return true;
}

char16_t FromWindows1252(std::uint8_t byte) noexcept {
    return byte >= 0x80 && byte <= 0x9F ? kWindows1252[byte - 0x80] : char16_t{byte};
}

std::vector<std::uint8_t> LittleEndianBytes(std::u16string_view text) {
    std::vector<std::uint8_t> bytes;
    bytes.reserve(text.size() * 2);
    for (const char16_t unit : text) {
        bytes.push_back(static_cast<std::uint8_t>(unit & 0xFFU));
        bytes.push_back(static_cast<std::uint8_t>(unit >> 8U));
    }
    return bytes;
}

std::u16string FromLittleEndianBytes(const std::uint8_t* bytes, std::size_t size) {
    std::u16string text;
    text.reserve(size / 2);
    for (std::size_t at = 0; at + 1 < size; at += 2) {
        text.push_back(static_cast<char16_t>(bytes[at] | (bytes[at + 1] << 8)));
    }
    return text;
}
