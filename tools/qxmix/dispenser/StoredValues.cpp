#include "StoredValues.h"

#include "json/Json.h"
#include "json/JsonText.h"
#include "text/Hex.h"

#include <algorithm>
#include <map>

namespace qxmix {

namespace {

constexpr std::size_t kLongestText = 63;  // with its terminator the 64 characters that are read

std::string ReadHex(const JsonFields& raw) {
    const std::string expected = "hexadecimal digits in pairs";
    const Json& hex = raw.Required("hex", expected);
    if (!hex.is_string() || !IsHex(hex.get<std::string>())) {
        throw raw.Here().Below("hex").Error(NotAllowed(DescribeJson(hex), expected));
    }
    return BytesOfHex(hex.get<std::string>());
}

StoredValue ReadRawValue(const std::string& name, const Json& json, const Place& place) {
    const JsonFields raw(json, place, {"type", "hex"}, JsonFields::OwnFields::Refused);
    raw.Required("type", RangeText(0, UINT32_MAX));
    return {name, *raw.Whole32("type"), ReadHex(raw)};
}

std::string TypeText(std::uint32_t type) {
    static const std::map<std::uint32_t, std::string> names = {
        {0, "REG_NONE"},   {kRegSz, "REG_SZ"},       {2, "REG_EXPAND_SZ"},
        {3, "REG_BINARY"}, {kRegDword, "REG_DWORD"}, {7, "REG_MULTI_SZ"},
    };
    const auto name = names.find(type);
    return name == names.end() ? "type " + std::to_string(type) : name->second;
}

/// The text as 16-bit characters; the parser has made sure that it is UTF-8.
std::u16string Utf16Of(const std::string& utf8) {
    std::u16string wide;
    std::size_t index = 0;
    while (index < utf8.size()) {
        const auto lead = static_cast<unsigned char>(utf8[index++]);
        const unsigned more = lead < 0x80U ? 0 : lead < 0xE0U ? 1 : lead < 0xF0U ? 2 : 3;
        char32_t character = more == 0 ? lead : lead & (0x3FU >> more);
        for (unsigned byte = 0; byte < more && index < utf8.size(); ++byte) {
            character = (character << 6U) | (static_cast<unsigned char>(utf8[index++]) & 0x3FU);
        }
        if (character < 0x10000U) {
            wide += static_cast<char16_t>(character);
        } else {
            wide += static_cast<char16_t>(0xD800U + ((character - 0x10000U) >> 10U));
            wide += static_cast<char16_t>(0xDC00U + ((character - 0x10000U) & 0x3FFU));
        }
    }
    return wide;
}

}  // namespace

std::vector<StoredValue> ReadStoredValues(const Json& json, const Place& place) {
    const JsonFields fields(json, place, {kTraceLevel, kCstMinimum4Mix6},
                            JsonFields::OwnFields::Refused);
    std::vector<StoredValue> values;
    if (const Json* level = fields.Find(kTraceLevel)) {
        values.push_back(
            level->is_object()
                ? ReadRawValue(kTraceLevel, *level, place.Below(kTraceLevel))
                : StoredValue{kTraceLevel, kRegDword, DwordBytes(*fields.Whole32(kTraceLevel))});
    }
    if (const Json* minimum = fields.Find(kCstMinimum4Mix6)) {
        if (minimum->is_number()) {
            throw place.Below(kCstMinimum4Mix6)
                .Error(NotAllowed(minimum->dump(), "text, \"" + minimum->dump() + "\""));
        }
        values.push_back(
            minimum->is_object()
                ? ReadRawValue(kCstMinimum4Mix6, *minimum, place.Below(kCstMinimum4Mix6))
                : StoredValue{kCstMinimum4Mix6, kRegSz,
                              TextBytes(*fields.Text(kCstMinimum4Mix6, kLongestText))});
    }
    return values;
}

Json StoredValuesJson(const std::vector<StoredValue>& values) {
    Json json = Json::object();
    for (const StoredValue& value : values) {
        json[value.name] = {{"type", value.type}, {"hex", HexText(value.bytes)}};
    }
    return json;
}

std::string DwordBytes(std::uint32_t number) {
    std::string bytes;
    for (unsigned shift = 0; shift < 32; shift += 8) {
        bytes += static_cast<char>(number >> shift);
    }
    return bytes;
}

std::string TextBytes(const std::string& utf8) {
    std::string bytes;
    for (const char16_t character : Utf16Of(utf8) + u'\0') {
        bytes += static_cast<char>(character & 0xFFU);
        bytes += static_cast<char>(character >> 8U);
    }
    return bytes;
}

std::optional<std::string> StoredText(const StoredValue& value) {
    const std::size_t size = value.bytes.size();
    if (value.type != kRegSz || size % 2 != 0) {
        return std::nullopt;
    }
    const bool isTerminated = size >= 2 && value.bytes[size - 2] == 0 && value.bytes[size - 1] == 0;
    std::string text;
    for (std::size_t at = 0; at < size - (isTerminated ? 2 : 0); at += 2) {
        const char low = value.bytes[at];
        if (value.bytes[at + 1] != 0 || low < ' ' || low > '~') {
            return std::nullopt;
        }
        text += low;
    }
    return text;
}

std::string StoredValueText(const StoredValue& value) {
    const std::string type = TypeText(value.type);
    if (const std::optional<std::string> text = StoredText(value)) {
        return type + " \"" + *text + "\"";
    }
    if (value.type == kRegDword && value.bytes.size() == sizeof(std::uint32_t)) {
        std::uint32_t number = 0;
        for (std::size_t at = value.bytes.size(); at-- > 0;) {
            number = (number << 8U) | static_cast<unsigned char>(value.bytes[at]);
        }
        return type + " " + std::to_string(number);
    }
    constexpr std::size_t kMostBytes = 16;
    std::string text = type;
    for (std::size_t at = 0; at < std::min(value.bytes.size(), kMostBytes); ++at) {
        text += " " + HexText(value.bytes.substr(at, 1));
    }
    return text + (value.bytes.size() > kMostBytes ? " ..." : "");
}

}  // namespace qxmix
