#include "SheetText.h"

#include "TextEncoding.h"
#include "errors/Errors.h"

#include <algorithm>
#include <string_view>

namespace qxmix {

namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kLittleEndianMark = "\xFF\xFE";
constexpr std::string_view kBigEndianMark = "\xFE\xFF";

bool BeginsWith(std::string_view bytes, std::string_view mark) {
    return bytes.substr(0, mark.size()) == mark;
}

enum class Encoding { Bytes, LittleEndian, BigEndian };

Encoding EncodingOf(std::string_view bytes) {
    if (BeginsWith(bytes, kLittleEndianMark)) {
        return Encoding::LittleEndian;
    }
    if (BeginsWith(bytes, kBigEndianMark)) {
        return Encoding::BigEndian;
    }
    // Texts begin with a letter, and of most letters one half is 0 in UTF-16.
    const bool isHalfZero = bytes.size() >= 2 && (bytes[0] == '\0') != (bytes[1] == '\0');
    return !isHalfZero        ? Encoding::Bytes
           : bytes[1] == '\0' ? Encoding::LittleEndian
                              : Encoding::BigEndian;
}

std::string FromUtf16(std::string bytes, Encoding encoding) {
    if (encoding == Encoding::BigEndian) {
        for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
            std::swap(bytes[at], bytes[at + 1]);
        }
    }
    const std::size_t mark = BeginsWith(bytes, kLittleEndianMark) ? kLittleEndianMark.size() : 0;
    return EncodeUtf8(FromLittleEndianBytes(
        reinterpret_cast<const std::uint8_t*>(bytes.data()) + mark, bytes.size() - mark));
}

std::string FromWindows(std::string_view bytes) {
    std::u16string text;
    std::transform(bytes.begin(), bytes.end(), std::back_inserter(text),
                   [](char byte) { return FromWindows1252(static_cast<std::uint8_t>(byte)); });
    return EncodeUtf8(text);
}

}  // namespace

std::string SheetText(const InputFile& file) {
    const Encoding encoding = EncodingOf(file.content);
    if (encoding != Encoding::Bytes) {
        if (file.content.size() % 2 != 0) {
            throw InputError(file.name + ": ends within a character of UTF-16; expected all of it");
        }
        return FromUtf16(file.content, encoding);
    }
    if (!DecodeUtf8(file.content)) {
        return FromWindows(file.content);
    }
    return file.content.substr(BeginsWith(file.content, kUtf8Mark) ? kUtf8Mark.size() : 0);
}

}  // namespace qxmix
