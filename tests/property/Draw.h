#pragma once

#include <cstddef>
#include <cstdint>
#include <random>

namespace property {

/// Random numbers that are the same on every platform for one seed and case number.
///
/// Two draws must not stand in one expression whose order of evaluation the language leaves open.
class Draw {
public:
    Draw(std::uint64_t seed, std::uint64_t caseNumber);

    /// Any 64 bits.
    std::uint64_t Next() { return engine_(); }

    /// Any 32 bits.
    std::uint32_t U32() { return static_cast<std::uint32_t>(engine_()); }

    /// 0 to limit - 1; limit must not be 0.
    std::uint32_t Below(std::uint32_t limit) {
        return static_cast<std::uint32_t>(engine_() % limit);
    }

    /// first to last, both included.
    std::uint32_t Between(std::uint32_t first, std::uint32_t last) {
        const std::uint64_t span = std::uint64_t{last} - first + 1;
        return static_cast<std::uint32_t>(first + engine_() % span);
    }

    /// True in so many of a hundred draws.
    bool Percent(std::uint32_t percent) { return Below(100) < percent; }

    /// One of the elements of an array.
    template <class T, std::size_t N>
    const T& Pick(const T (&choices)[N]) {
        return choices[Below(static_cast<std::uint32_t>(N))];
    }

private:
    std::mt19937_64 engine_;
};

/// Fills memory with any bytes.
void FillWithAnyBytes(Draw& draw, std::uint8_t* bytes, std::size_t size);

}  // namespace property
