#include "RegistryValueReader.h"

#include "HostControl.h"
#include "TextEncoding.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr unsigned kNoDigit = 16;

unsigned HexDigit(char16_t character) noexcept {
    if (character >= u'0' && character <= u'9') {
        return character - unsigned{u'0'};
    }
    if (character >= u'a' && character <= u'f') {
        return character - unsigned{u'a'} + 10;
    }
    if (character >= u'A' && character <= u'F') {
        return character - unsigned{u'A'} + 10;
    }
    return kNoDigit;
}

/// Reads one hexadecimal number of up to so many digits.
std::uint32_t ReadHex(RegistryLines* lines, unsigned mostDigits, const char* whenWrong) {
    std::uint32_t number = 0;
    unsigned digits = 0;
    for (; HexDigit(lines->Peek()) != kNoDigit; ++digits) {
        number = (number << 4U) | HexDigit(lines->Peek());
        lines->Skip(1);
    }
    if (digits == 0 || digits > mostDigits) {
        lines->Fail(whenWrong);
    }
    return number;
}

/// Goes on in the next line that holds bytes; comments may stand in between.
void ContinueBytes(RegistryLines* lines) {
    lines->Skip(1);
    if (!lines->AtEndOrComment()) {
        lines->Fail("text after the backslash that continues the bytes");
    }
    do {
        if (!lines->Next()) {
            lines->Fail("the bytes are to go on in a next line, but there is none");
        }
        lines->SkipBlanks();
    } while (lines->Peek() == u';');
}

/// Reads bytes up to the end of the value, which may be some lines below.
std::vector<std::uint8_t> ReadBytes(RegistryLines* lines) {
    std::vector<std::uint8_t> bytes;
    bool byteMustCome = false;
    while (byteMustCome || !lines->AtEndOrComment()) {
        lines->SkipBlanks();
        if (lines->Peek() == u'\\') {
            ContinueBytes(lines);
            byteMustCome = true;
            continue;
        }
        bytes.push_back(static_cast<std::uint8_t>(
            ReadHex(lines, 2, "a byte of one or two hexadecimal digits expected")));
        lines->SkipBlanks();
        byteMustCome = lines->TakeIf(u",");
        if (!byteMustCome && !lines->AtEndOrComment()) {
            lines->Fail("',' expected between bytes");
        }
    }
    return bytes;
}

bool IsTextType(std::uint32_t type) noexcept {
    return type == kQxmixRegSz || type == kQxmixRegExpandSz || type == kQxmixRegMultiSz;
}

std::vector<std::uint8_t> Widen(const std::vector<std::uint8_t>& narrow) {
    std::u16string text;
    std::transform(narrow.begin(), narrow.end(), std::back_inserter(text), FromWindows1252);
    return LittleEndianBytes(text);
}

std::uint32_t ReadBytesType(RegistryLines* lines) {
    if (lines->TakeIf(u":")) {
        return kQxmixRegBinary;
    }
    const char* const wrong = "expected hex: or hex(N): with N of one to eight hexadecimal digits";
    if (!lines->TakeIf(u"(")) {
        lines->Fail(wrong);
    }
    const std::uint32_t type = ReadHex(lines, 8, wrong);
    if (!lines->TakeIf(u"):")) {
        lines->Fail(wrong);
    }
    return type;
}

}  // namespace

std::u16string ReadQuotedText(RegistryLines* lines, const char* what) {
    std::u16string text;
    lines->Skip(1);
    while (lines->Peek() != u'"') {
        if (lines->TakeIf(u"\\") && lines->Peek() != u'\\' && lines->Peek() != u'"') {
            lines->Fail(std::string("in a ") + what +
                        " a backslash is written \\\\ and a quotation mark \\\"");
        }
        if (lines->Rest().empty()) {
            lines->Fail(std::string(what) + " without closing quotation mark");
        }
        text.push_back(lines->Peek());
        lines->Skip(1);
    }
    lines->Skip(1);
    return text;
}

std::optional<RegistryValue> ReadValue(RegistryLines* lines, bool hasNarrowText) {
    std::optional<RegistryValue> value;
    if (lines->Peek() == u'"') {
        value = TextValue(ReadQuotedText(lines, "text"));
    } else if (lines->TakeIf(u"dword:")) {
        value = NumberValue(ReadHex(lines, 8, "dword: needs one to eight hexadecimal digits"));
    } else if (lines->TakeIf(u"hex")) {
        value = RegistryValue{ReadBytesType(lines), {}};
        value->bytes = ReadBytes(lines);
        if (hasNarrowText && IsTextType(value->type)) {
            value->bytes = Widen(value->bytes);
        }
    } else if (!lines->TakeIf(u"-")) {
        lines->Fail("expected \"text\", dword:, hex:, hex(N): or - after the '='");
    }
    if (!lines->AtEndOrComment()) {
        lines->Fail("something follows the value");
    }
    return value;
}
