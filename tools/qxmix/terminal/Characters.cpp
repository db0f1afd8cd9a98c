#include "Characters.h"

#include <algorithm>
#include <iterator>

namespace qxmix {

namespace {

struct Range {
    std::uint32_t first;
    std::uint32_t last;
};

constexpr Range kMarks[] = {{0x0300, 0x036F}, {0x200B, 0x200D}, {0x20D0, 0x20F0}, {0xFE00, 0xFE0F}};

constexpr Range kWide[] = {{0x1100, 0x115F},   {0x2E80, 0x303E},  {0x3041, 0xA4CF},
                           {0xAC00, 0xD7A3},   {0xF900, 0xFAFF},  {0xFE30, 0xFE4F},
                           {0xFF00, 0xFF60},   {0xFFE0, 0xFFE6},  {0x1F300, 0x1F64F},
                           {0x1F900, 0x1F9FF}, {0x20000, 0x3FFFD}};

/// Controls, ends of lines and paragraphs, and what turns the direction of text.
constexpr Range kMoving[] = {{0x00, 0x1F},     {0x7F, 0x9F},     {0x061C, 0x061C},
                             {0x200E, 0x200F}, {0x2028, 0x202E}, {0x2066, 0x2069}};

/// What is written in two, three and four bytes.
constexpr Range kOfSize[][2] = {
    {{0x80, 0x7FF}, {0x80, 0x7FF}},
    {{0x800, 0xD7FF}, {0xE000, 0xFFFF}},
    {{0x10000, 0x10FFFF}, {0x10000, 0x10FFFF}},
};

template <std::size_t Count>
bool IsIn(const Range (&ranges)[Count], std::uint32_t code) {
    return std::any_of(std::begin(ranges), std::end(ranges), [code](const Range& range) {
        return code >= range.first && code <= range.last;
    });
}

}  // namespace

std::size_t Character::Columns() const {
    return IsIn(kMarks, code) ? 0 : IsIn(kWide, code) ? 2 : 1;
}

bool Character::Moves() const {
    const bool isBroken = size == 1 && code >= 0x80;
    return isBroken || IsIn(kMoving, code);
}

Character CharacterAt(const std::string& utf8, std::size_t at) {
    constexpr Character kBroken = {0xFFFDU, 1};
    const auto first = static_cast<unsigned char>(utf8[at]);
    if (first < 0x80U) {
        return {first, 1};
    }
    const std::size_t size = first >= 0xF0U ? 4 : first >= 0xE0U ? 3 : 2;
    if (first < 0xC0U || at + size > utf8.size()) {
        return kBroken;
    }
    std::uint32_t code = first & (0xFFU >> (size + 1));
    for (std::size_t index = 1; index < size; ++index) {
        const auto next = static_cast<unsigned char>(utf8[at + index]);
        if ((next & 0xC0U) != 0x80U) {
            return kBroken;
        }
        code = code << 6U | (next & 0x3FU);
    }
    const bool isAllowed = first < 0xF8U && IsIn(kOfSize[size - 2], code);
    return isAllowed ? Character{code, size} : kBroken;
}

}  // namespace qxmix
