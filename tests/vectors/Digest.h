#pragma once

#include <cstddef>
#include <cstdint>

/// FNV-1a of 64 bits.
class Digest {
public:
    void Add(const void* bytes, std::size_t size) noexcept {
        const auto* const first = static_cast<const unsigned char*>(bytes);
        for (std::size_t index = 0; index < size; ++index) {
            state_ = (state_ ^ first[index]) * 0x100000001B3U;
        }
    }

    unsigned long long Value() const noexcept { return state_; }

private:
    std::uint64_t state_ = 0xCBF29CE484222325U;
};
