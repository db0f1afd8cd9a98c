#pragma once

#include <array>
#include <cstdint>

#include "RawBytes.h"
#include "Reference.h"

namespace reference {

/// One cassette as a test describes it: OK, a bill cassette, EUR, unless said otherwise.
struct CassetteLine {
    std::uint32_t value = 0;
    std::uint32_t count = 0;
    std::uint16_t status = 0;
    std::uint16_t type = 3;
    const char* currency = "EUR";
};

/// The bytes of a request, put together field by field; cassette k gets position k.
class RequestBytes {
public:
    RequestBytes() { Mix(1).Limit(65535).Currency("EUR"); }

    RequestBytes& Mix(std::uint16_t number) { return PutU16(0, number); }
    RequestBytes& Limit(std::uint16_t items) { return PutU16(2, items); }
    RequestBytes& Partial(std::uint32_t flag) { return PutU32(4, flag); }
    RequestBytes& Exponent(int exponent) {
        return PutU16(12, static_cast<std::uint16_t>(exponent));
    }
    RequestBytes& Amount(std::uint32_t amount) { return PutU32(16, amount); }
    RequestBytes& CassetteNumber(std::uint16_t number) { return PutU16(20, number); }
    RequestBytes& Remainder(std::uint32_t remainder) { return PutU32(1056, remainder); }

    RequestBytes& Currency(const char* currency) {
        PutText(8, currency);
        return *this;
    }

    /// Adds a cassette behind those there are.
    RequestBytes& Add(const CassetteLine& line) {
        const std::uint16_t index = ReadU16(&bytes_[20]);
        const std::size_t at = 24U + 172U * index;
        PutU16(at, index);
        PutU16(at + 130, line.type);
        PutText(at + 137, line.currency);
        PutU32(at + 148, line.value);
        PutU32(at + 152, line.count);
        PutU16(at + 164, line.status);
        return CassetteNumber(static_cast<std::uint16_t>(index + 1));
    }

    RequestBytes& Bill(std::uint32_t value, std::uint32_t count, std::uint16_t status = 0) {
        return Add({value, count, status, 3, "EUR"});
    }

    RequestBytes& Coin(std::uint32_t value, std::uint32_t count) {
        return Add({value, count, 0, 4, "EUR"});
    }

    RequestBytes& Coupon(std::uint32_t value, std::uint32_t count) {
        return Add({value, count, 0, 7, "EUR"});
    }

    /// Gives the cassette at an index another position.
    RequestBytes& Position(unsigned index, std::uint16_t position) {
        return PutU16(24U + 172U * index, position);
    }

    RequestBytes& PutU16(std::size_t at, std::uint16_t value) {
        WriteU16(&bytes_[at], value);
        return *this;
    }

    RequestBytes& PutU32(std::size_t at, std::uint32_t value) {
        WriteU32(&bytes_[at], value);
        return *this;
    }

    std::uint8_t* Bytes() { return bytes_.data(); }
    const std::uint8_t* Bytes() const { return bytes_.data(); }
    std::uint32_t AmountNow() const { return ReadU32(&bytes_[16]); }
    std::uint32_t RemainderNow() const { return ReadU32(&bytes_[1056]); }

private:
    void PutText(std::size_t at, const char* currency) {
        for (std::size_t i = 0; i < 3; ++i) {
            bytes_[at + i] = static_cast<std::uint8_t>(currency[i]);
        }
    }

    std::array<std::uint8_t, kRequestBytes> bytes_{};
};

}  // namespace reference
