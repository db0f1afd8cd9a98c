#pragma once

#include "DemandCalendar.h"
#include "findings/Findings.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace qxmix {

/// Most withdrawals of one demand.
constexpr std::uint64_t kMostWithdrawals = 1000000;

/// One customer at the machine.
struct Withdrawal {
    std::int64_t time = 0;     ///< seconds from the first midnight
    std::uint32_t amount = 0;  ///< in the unit of an amount
    std::size_t currency = 0;  ///< place in the demand's currencies
};

/// What customers ask, one after the other.
struct Demand {
    std::vector<Withdrawal> withdrawals;  ///< in the order of their times
    std::vector<std::string> currencies;  ///< the first is the dispenser's
    DemandCalendar calendar;
    std::optional<std::uint32_t> seed;  ///< none: it was recorded
    std::vector<Finding> notes;         ///< how a record was read
};

/// How a demand is drawn: the content of a demand file.
struct DemandPattern {
    static constexpr std::size_t kHours = 24;

    struct Amount {
        std::uint32_t amount = 0;
        std::uint32_t weight = 0;
    };

    std::uint32_t days = 1;
    std::uint32_t perDay = 0;
    std::vector<std::uint32_t> hours;  ///< weight of each hour of a day; not all 0
    std::vector<Amount> amounts;       ///< not all of weight 0

    std::uint64_t Size() const { return std::uint64_t{days} * perDay; }
};

/// Draws a demand: the same one from the same pattern and seed on every machine. Day 0 is a Monday.
///
/// @param currency  of all its amounts.
Demand DrawDemand(const DemandPattern& pattern, std::uint32_t seed, const std::string& currency);

}  // namespace qxmix
