#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace qxmix {

/// Numbers of days from one refill to the next.
struct DayRange {
    std::uint32_t from = 1;
    std::uint32_t to = 1;  ///< not below `from`
};

/// Days that any interval may have.
constexpr std::uint32_t kMostDaysToRefill = 3660;

/// Reads "1-14"; none: it is no such text, or not from 1 to the most.
std::optional<DayRange> ParseDayRange(const std::string& text);

}  // namespace qxmix
