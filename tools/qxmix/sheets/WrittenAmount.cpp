#include "WrittenAmount.h"

#include "text/TextList.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace qxmix {

namespace {

using Form = WrittenAmount::Form;

constexpr char kApart = '\'';  // parts groups and nothing else

/// The text with every apostrophe and blank within it made one character.
std::string WithOneApart(const std::string& text) {
    // Apostrophe, and the blanks that keep a number in one line.
    constexpr std::string_view apart[] = {" ", "\xE2\x80\x99", "\xC2\xA0", "\xE2\x80\x89",
                                          "\xE2\x80\xAF"};
    std::string marked = text;
    for (const std::string_view mark : apart) {
        for (std::size_t at = marked.find(mark); at != std::string::npos; at = marked.find(mark)) {
            marked.replace(at, mark.size(), 1, kApart);
        }
    }
    return marked;
}

bool IsDigits(const std::string& text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
}

/// Whether the parts of a number between one kind of mark are groups of thousands.
bool AreGroups(const std::vector<std::string>& parts) {
    const auto haveSize = [&parts](std::size_t size) {
        return std::all_of(parts.begin() + 1, parts.end() - 1,
                           [size](const std::string& part) { return part.size() == size; });
    };
    const std::size_t first = parts.front().size();
    return parts.back().size() == WrittenAmount::kGroup &&
           ((first <= WrittenAmount::kGroup && haveSize(WrittenAmount::kGroup)) ||
            (first <= 2 && haveSize(2)));
}

/// With no other mark among them.
bool IsGrouped(const std::string& whole, char mark) {
    const std::vector<std::string> parts = Split(whole, mark);
    return std::all_of(parts.begin(), parts.end(), IsDigits) && AreGroups(parts);
}

char OtherMark(char mark) {
    return mark == '.' ? ',' : '.';
}

/// The form of a number with at least one mark.
std::optional<WrittenAmount> FormOf(const std::string& number, const std::string& text) {
    const std::size_t at = number.find_last_of(".,'");
    const char last = number[at];
    const std::string whole = number.substr(0, at);
    const std::size_t before = whole.find_first_of(".,'");
    const bool isAlone = before == std::string::npos;
    if (last == kApart || (!isAlone && whole[before] == last)) {
        const char mark = last == kApart ? '\0' : OtherMark(last);
        return IsGrouped(number, last)
                   ? std::make_optional(WrittenAmount{text, Form::Grouped, mark})
                   : std::nullopt;
    }
    if (!isAlone && !IsGrouped(whole, whole[before])) {
        return std::nullopt;
    }
    const bool isEither = isAlone && IsGrouped(number, last) && number.front() != '0';
    return WrittenAmount{text, isEither ? Form::Either : Form::Decimals, last};
}

}  // namespace

Money WrittenAmount::Value(char decimalMark) const {
    std::string digits;
    for (const char character : WithOneApart(text)) {
        if (character == decimalMark) {
            digits += '.';
        } else if (character >= '0' && character <= '9') {
            digits += character;
        }
    }
    return Money::Parse(digits).value();
}

std::optional<WrittenAmount> ParseWrittenAmount(const std::string& text) {
    const std::string number = WithOneApart(text);
    std::string parts = number;
    std::replace_if(
        parts.begin(), parts.end(),
        [](char character) { return character == '.' || character == ','; }, kApart);
    for (const std::string& part : Split(parts, kApart)) {
        if (!IsDigits(part)) {
            return std::nullopt;
        }
    }
    return parts.find(kApart) == std::string::npos
               ? std::make_optional(WrittenAmount{text, Form::Plain, '\0'})
               : FormOf(number, text);
}

}  // namespace qxmix
