#include "Draw.h"

namespace property {
namespace {

/// Spreads neighbouring numbers over all 64 bits, so that neighbouring cases have nothing in
/// common.
std::uint64_t Scatter(std::uint64_t number) {
    number = (number ^ (number >> 30U)) * 0xBF58476D1CE4E5B9ULL;
    number = (number ^ (number >> 27U)) * 0x94D049BB133111EBULL;
    return number ^ (number >> 31U);
}

}  // namespace

Draw::Draw(std::uint64_t seed, std::uint64_t caseNumber)
    : engine_(Scatter(Scatter(seed + 1) + caseNumber)) {
}

void FillWithAnyBytes(Draw& draw, std::uint8_t* bytes, std::size_t size) {
    std::uint64_t word = 0;
    for (std::size_t i = 0; i < size; ++i) {
        if (i % 8 == 0) {
            word = draw.Next();
        }
        bytes[i] = static_cast<std::uint8_t>(word >> (8U * (i % 8U)));
    }
}

}  // namespace property
