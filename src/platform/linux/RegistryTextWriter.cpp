#include "RegistryText.h"

#include "HostControl.h"
#include "TextEncoding.h"

#include <cstdio>

namespace {

/// Lines of bytes are continued behind the comma that passes this column, as Windows' own tools do.
constexpr std::size_t kLastColumn = 76;

std::u16string Ascii(const char* text) {
    return std::u16string(text, text + std::char_traits<char>::length(text));
}

std::u16string Hex(const char* format, std::uint32_t number) {
    char digits[32];
    static_cast<void>(std::snprintf(digits, sizeof(digits), format, number));
    return Ascii(digits);
}

std::u16string Quoted(std::u16string_view text) {
    std::u16string quoted = u"\"";
    for (const char16_t character : text) {
        if (character == u'\\' || character == u'"') {
            quoted += u'\\';
        }
        quoted += character;
    }
    return quoted + u"\"";
}

/// Whether the bytes are what reading the text between quotation marks gives back.
bool CanBeQuoted(const RegistryValue& value) {
    const std::vector<std::uint8_t>& bytes = value.bytes;
    if (value.type != kQxmixRegSz || bytes.empty() || bytes.size() % 2 != 0) {
        return false;
    }
    const std::u16string text = FromLittleEndianBytes(bytes.data(), bytes.size());
    return text.find(u'\0') == text.size() - 1 &&
           text.find_first_of(u"\r\n") == std::u16string::npos && IsWellFormedUtf16(text);
}

void AppendBytes(const std::vector<std::uint8_t>& bytes, std::u16string* line) {
    std::size_t column = line->size();
    for (std::size_t k = 0; k < bytes.size(); ++k) {
        *line += Hex("%02x", bytes[k]);
        column += 3;
        if (k + 1 == bytes.size()) {
            break;
        }
        *line += u',';
        if (column > kLastColumn) {
            *line += u"\\\r\n  ";
            column = 2;
        }
    }
}

std::u16string ValueLine(const std::u16string& name, const RegistryValue& value) {
    std::u16string line = name.empty() ? u"@" : Quoted(name);
    line += u'=';
    const std::vector<std::uint8_t>& bytes = value.bytes;
    if (CanBeQuoted(value)) {
        const std::u16string text = FromLittleEndianBytes(bytes.data(), bytes.size() - 2);
        return line + Quoted(text);
    }
    if (value.type == kQxmixRegDword && bytes.size() == 4) {
        std::uint32_t number = 0;
        for (unsigned k = 0; k < 4; ++k) {
            number |= std::uint32_t{bytes[k]} << (8 * k);
        }
        return line + Hex("dword:%08x", number);
    }
    line += value.type == kQxmixRegBinary ? Ascii("hex:") : Hex("hex(%x):", value.type);
    AppendBytes(bytes, &line);
    return line;
}

void CheckName(const std::u16string& name, const char* what) {
    if (name.find_first_of(u"\r\n") != std::u16string::npos) {
        throw RegistryTextFailure{0, std::string("the name of a ") + what +
                                         " has a line break, which the file cannot hold"};
    }
}

void AppendKey(const KeyPath& path, const RegistryKey& key, std::u16string* text) {
    CheckName(path, "key");
    *text += u"[" + path + u"]\r\n";
    for (const auto& [valueName, value] : key.values) {
        CheckName(valueName, "value");
        *text += ValueLine(valueName, value) + u"\r\n";
    }
    *text += u"\r\n";
}

}  // namespace

std::string WriteRegistryText(const RegistryContent& content) {
    constexpr char16_t kMark = 0xFEFF;
    std::u16string text = kMark + std::u16string(u"Windows Registry Editor Version 5.00\r\n\r\n");
    for (const auto& [path, key] : content.Keys()) {
        const bool isEmptyRoot = IsRoot(path) && key.values.empty();
        if (!isEmptyRoot) {
            AppendKey(path, key, &text);
        }
    }
    const std::vector<std::uint8_t> bytes = LittleEndianBytes(text);
    return std::string(bytes.begin(), bytes.end());
}
