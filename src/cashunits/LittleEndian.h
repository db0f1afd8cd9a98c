#pragma once

#include <cstdint>

/// Unsigned 16-bit integer kept as little-endian bytes: alignment 1, any address, the same bytes on
/// every processor.
///
/// These types convert from and to the native integer and do nothing else. Their default
/// constructors leave the bytes as they are, so a record can be laid over memory of the host.
/// The bytes are written out one by one because compilers turn exactly this form into one access
/// where the processor allows it.
class u16le {
public:
    u16le() noexcept = default;
    u16le(std::uint16_t value) noexcept
        : bytes_{static_cast<unsigned char>(value), static_cast<unsigned char>(value >> 8U)} {}

    operator std::uint16_t() const noexcept {
        return static_cast<std::uint16_t>(bytes_[0] | (static_cast<unsigned>(bytes_[1]) << 8U));
    }

private:
    unsigned char bytes_[2];
};

/// Signed 16-bit integer, two's complement.
class s16le {
public:
    s16le() noexcept = default;
    s16le(std::int16_t value) noexcept : bits_(static_cast<std::uint16_t>(value)) {}

    operator std::int16_t() const noexcept {
        return static_cast<std::int16_t>(std::uint16_t{bits_});
    }

private:
    u16le bits_;
};

/// Unsigned 32-bit integer.
class u32le {
public:
    u32le() noexcept = default;
    u32le(std::uint32_t value) noexcept
        : bytes_{static_cast<unsigned char>(value), static_cast<unsigned char>(value >> 8U),
                 static_cast<unsigned char>(value >> 16U),
                 static_cast<unsigned char>(value >> 24U)} {}

    operator std::uint32_t() const noexcept {
        return bytes_[0] | (std::uint32_t{bytes_[1]} << 8U) | (std::uint32_t{bytes_[2]} << 16U) |
               (std::uint32_t{bytes_[3]} << 24U);
    }

private:
    unsigned char bytes_[4];
};
