#pragma once

#include <array>
#include <cstdint>
#include <optional>

namespace qxmix {

constexpr std::int64_t kSecondsInMinute = 60;
constexpr std::int64_t kSecondsInHour = 3600;
constexpr std::int64_t kSecondsInDay = 86400;
constexpr std::int64_t kDaysInWeek = 7;

/// As people write them; a week begins with a Monday.
constexpr std::array<const char*, kDaysInWeek> kDayNames = {"Mon", "Tue", "Wed", "Thu",
                                                            "Fri", "Sat", "Sun"};

/// A day in the calendar of today.
struct Date {
    std::int64_t year = 1;
    std::int64_t month = 1;
    std::int64_t day = 1;
};

/// Days since 1970-01-01; none when there is no such day in the years 1 to 9999.
std::optional<std::int64_t> DayNumber(const Date& date);

/// The day with this number.
///
/// @param number  not before the year 1.
Date DateOf(std::int64_t number);

}  // namespace qxmix
