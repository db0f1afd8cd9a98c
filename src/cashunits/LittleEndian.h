#pragma once

#include <cstdint>

/// Turns a number from the processor's byte order to little-endian, and back.
inline std::uint16_t InLittleEndian(std::uint16_t value) noexcept {
    return __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__ ? value : __builtin_bswap16(value);
}
inline std::uint32_t InLittleEndian(std::uint32_t value) noexcept {
    return __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__ ? value : __builtin_bswap32(value);
}

/// Unsigned 16-bit integer kept as little-endian bytes: alignment 1, any address, the same bytes on
/// every processor.
///
/// These types convert from and to the native integer and do nothing else. Their default
/// constructors leave the bytes as they are, so a record can be laid over memory of the host.
/// Being packed, a number is read in one access where the processor allows that at any address, and
/// byte by byte where it does not.
class u16le {
public:
    u16le() noexcept = default;
    u16le(std::uint16_t value) noexcept : bits_(InLittleEndian(value)) {}

    operator std::uint16_t() const noexcept { return InLittleEndian(bits_); }

private:
    std::uint16_t bits_ [[gnu::packed]];
};

/// A pointer, in the processor's own form, at any address.
template <typename Content>
class AnywherePointer {
public:
    AnywherePointer() noexcept = default;
    AnywherePointer(Content* content) noexcept : content_(content) {}

    operator Content*() const noexcept { return content_; }

private:
    Content* content_ [[gnu::packed]];
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
    u32le(std::uint32_t value) noexcept : bits_(InLittleEndian(value)) {}

    operator std::uint32_t() const noexcept { return InLittleEndian(bits_); }

private:
    std::uint32_t bits_ [[gnu::packed]];
};
