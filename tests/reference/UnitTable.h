#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace reference {

using Currency = std::array<std::uint8_t, 3>;

/// One cassette of a request; bytes keeps the whole record, the other fields are read from it.
struct Cassette {
    std::uint16_t position = 0;
    std::uint16_t type = 0;
    Currency currency{};
    std::uint32_t value = 0;
    std::uint32_t count = 0;
    std::uint16_t status = 0;
    std::array<std::uint8_t, 172> bytes{};
};

/// The cassettes of one type, currency and value, grouped.
struct LogicalUnit {
    std::uint16_t number = 0;
    std::uint16_t type = 0;
    Currency currency{};
    std::uint32_t value = 0;
    std::uint32_t count = 0;
    std::uint16_t status = 0;
    std::vector<Cassette> cassettes;  // never empty
};

/// Logical units in table order, at most six.
using UnitTable = std::vector<LogicalUnit>;

/// Number of cassettes in a request; a number above six reads as six, since the record has no more.
unsigned CassetteCount(const std::uint8_t* request);

/// Cassette at an index (0 to 5) of a request's array.
Cassette ReadCassette(const std::uint8_t* request, unsigned index);

/// Groups the cassettes of a request, in the order in which each kind is first met.
UnitTable BuildTable(const std::uint8_t* request);

/// Whether a group of this status takes over the status of a cassette that joins it.
bool TakesOver(std::uint16_t groupStatus, std::uint16_t newStatus);

}  // namespace reference
