#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace image {

using Bytes = std::vector<std::uint8_t>;

/// Puts little-endian numbers behind each other.
class ByteWriter {
public:
    void U8(std::uint32_t value) { bytes_.push_back(static_cast<std::uint8_t>(value)); }

    void U16(std::uint32_t value) {
        U8(value);
        U8(value >> 8U);
    }

    void U32(std::uint32_t value) {
        U16(value);
        U16(value >> 16U);
    }

    /// The characters, and zeros up to `width`; longer text is cut off.
    void Text(const std::string& text, std::size_t width) {
        for (std::size_t index = 0; index < width; ++index) {
            U8(index < text.size() ? static_cast<unsigned char>(text[index]) : 0);
        }
    }

    void Append(const Bytes& bytes) { bytes_.insert(bytes_.end(), bytes.begin(), bytes.end()); }

    /// Zeros up to the next multiple.
    void PadTo(std::size_t multiple) {
        while (bytes_.size() % multiple != 0) {
            U8(0);
        }
    }

    std::uint32_t Size() const { return static_cast<std::uint32_t>(bytes_.size()); }
    const Bytes& Written() const { return bytes_; }

private:
    Bytes bytes_;
};

/// The 32-bit little-endian number at a place inside the bytes.
inline std::uint32_t ReadU32(const Bytes& bytes, std::size_t at) {
    return bytes.at(at) | (std::uint32_t{bytes.at(at + 1)} << 8U) |
           (std::uint32_t{bytes.at(at + 2)} << 16U) | (std::uint32_t{bytes.at(at + 3)} << 24U);
}

inline void StoreU32(Bytes& bytes, std::size_t at, std::uint32_t value) {
    for (std::size_t index = 0; index < 4; ++index) {
        bytes.at(at + index) = static_cast<std::uint8_t>(value >> (8 * index));
    }
}

}  // namespace image
