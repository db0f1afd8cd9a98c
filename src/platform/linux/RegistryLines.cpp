#include "RegistryLines.h"

#include "TextEncoding.h"

#include <algorithm>

namespace {

template <typename Text>
std::uint32_t LineAt(const Text& text, std::size_t place) {
    const auto end = text.begin() + static_cast<std::ptrdiff_t>(place);
    return static_cast<std::uint32_t>(1 + std::count(text.begin(), end, '\n'));
}

std::u16string DecodeUtf16(std::string_view bytes) {
    const std::vector<std::uint8_t> units(bytes.begin(), bytes.end());
    std::u16string text = FromLittleEndianBytes(units.data(), units.size());
    if (units.size() % 2 != 0) {
        throw RegistryTextFailure{LineAt(text, text.size()), "half a UTF-16 character at the end"};
    }
    return text;
}

std::u16string DecodeWithMark(std::string_view bytes) {
    constexpr std::string_view kUtf16Mark = "\xFF\xFE";
    constexpr std::string_view kBigEndianMark = "\xFE\xFF";
    constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
    const auto beginsWith = [bytes](std::string_view mark) {
        return bytes.substr(0, mark.size()) == mark;
    };
    if (beginsWith(kUtf16Mark)) {
        return DecodeUtf16(bytes.substr(kUtf16Mark.size()));
    }
    if (beginsWith(kBigEndianMark)) {
        throw RegistryTextFailure{1, "big-endian UTF-16; only little-endian is read"};
    }
    if (beginsWith(kUtf8Mark)) {
        bytes.remove_prefix(kUtf8Mark.size());
    }
    std::size_t badAt = 0;
    std::optional<std::u16string> text = DecodeUtf8(bytes, &badAt);
    if (!text) {
        throw RegistryTextFailure{LineAt(bytes, badAt), "neither UTF-8 nor UTF-16LE with its mark"};
    }
    return *std::move(text);
}

char16_t LowerAscii(char16_t character) noexcept {
    return character >= u'A' && character <= u'Z' ? static_cast<char16_t>(character + 0x20)
                                                  : character;
}

bool IsBlank(char16_t character) noexcept {
    return character == u' ' || character == u'\t';
}

}  // namespace

RegistryLines::RegistryLines(std::string_view bytes) : text_(DecodeWithMark(bytes)) {
    const std::size_t zero = text_.find(u'\0');
    if (zero != std::u16string::npos) {
        throw RegistryTextFailure{LineAt(text_, zero), "a character 0; UTF-16 needs its mark"};
    }
    for (std::u16string_view left = text_; !left.empty();) {
        const std::size_t length = std::min(left.find(u'\n'), left.size());
        std::u16string_view line = left.substr(0, length);
        if (!line.empty() && line.back() == u'\r') {
            line.remove_suffix(1);
        }
        lines_.push_back(line);
        // In a name it could not be written back.
        if (line.find(u'\r') != std::u16string_view::npos) {
            throw RegistryTextFailure{static_cast<std::uint32_t>(lines_.size()),
                                      "a carriage return within the line"};
        }
        left.remove_prefix(std::min(length + 1, left.size()));
    }
}

bool RegistryLines::Next() noexcept {
    if (next_ == lines_.size()) {
        return false;
    }
    rest_ = lines_[next_++];
    return true;
}

void RegistryLines::SkipBlanks() noexcept {
    while (IsBlank(Peek())) {
        Skip(1);
    }
}

bool RegistryLines::TakeIf(std::u16string_view expected) noexcept {
    const bool comes =
        rest_.size() >= expected.size() &&
        std::equal(expected.begin(), expected.end(), rest_.begin(),
                   [](char16_t a, char16_t b) { return LowerAscii(a) == LowerAscii(b); });
    if (comes) {
        Skip(expected.size());
    }
    return comes;
}

bool RegistryLines::AtEndOrComment() noexcept {
    SkipBlanks();
    return rest_.empty() || Peek() == u';';
}

void RegistryLines::Fail(const std::string& message) const {
    throw RegistryTextFailure{static_cast<std::uint32_t>(std::max<std::size_t>(next_, 1)), message};
}
