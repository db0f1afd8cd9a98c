#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace fuzz {

/// The bytes of one input, taken from the front; behind the last one there are zeros.
class Input {
public:
    Input(const std::uint8_t* bytes, std::size_t size) : bytes_(bytes), size_(size) {}

    std::uint8_t U8() { return next_ < size_ ? bytes_[next_++] : std::uint8_t{0}; }

    std::uint16_t U16() {
        const unsigned low = U8();
        return static_cast<std::uint16_t>(low + 256U * U8());
    }

    std::uint32_t U32() {
        const std::uint32_t low = U16();
        return low + 65536U * U16();
    }

    /// As many calls of U8, at once.
    void Fill(std::uint8_t* bytes, std::size_t count) {
        const std::size_t left = std::min(count, size_ - next_);
        std::fill(std::copy_n(bytes_ + next_, left, bytes), bytes + count, std::uint8_t{0});
        next_ += left;
    }

private:
    const std::uint8_t* bytes_;
    std::size_t size_;
    std::size_t next_ = 0;
};

}  // namespace fuzz
