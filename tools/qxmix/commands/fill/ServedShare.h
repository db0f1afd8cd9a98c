#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace qxmix {

/// How many withdrawals of how many were served.
struct ServedShare {
    std::uint64_t served = 0;
    std::uint64_t asked = 1;  ///< not 0

    /// Whether it is no smaller than the other.
    bool Reaches(const ServedShare& other) const {
        return served * other.asked >= other.served * asked;
    }

    /// Withdrawals out of so many that may be left unserved.
    std::uint64_t MostUnserved(std::uint64_t of) const {
        return of - (served * of + asked - 1) / asked;
    }
};

/// Percent with at most three decimals, above 0 and at most 100.
std::optional<ServedShare> ParsePercent(const std::string& text);

/// "99.64": never more than it is.
std::string PercentText(const ServedShare& share);

}  // namespace qxmix
