#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace qxmix {

/// Which part of a date such as 03.04.2026 is the month.
enum class DateOrder { DayFirst, MonthFirst };

/// A time as it was written, before it is known which part of its date is the month.
struct WrittenTime {
    enum class Day {
        YearFirst,  ///< 2026-11-16
        YearLast,   ///< 16.11.2026 or 11/16/2026
        OfWeek      ///< Mon, or w2 Mon
    };

    Day day = Day::YearFirst;
    std::int64_t year = 0;               ///< of OfWeek: the week, from 1 on; 0: not written
    std::int64_t first = 0;              ///< the other two parts of the date as they stand
    std::int64_t second = 0;             ///< of OfWeek: first is the day, 0 a Monday
    std::int64_t seconds = 0;            ///< of the day; a fraction is left out
    std::optional<std::int64_t> offset;  ///< seconds ahead of UTC, where that is written
};

constexpr const char* kTimeExpected = "a time such as 2026-11-16 09:46";

/// Reads "2026-11-16 09:46", "2026-11-16T09:46:00Z" (or an offset such as +01:00),
/// "16.11.2026 9:46", "11/16/2026 9:46 AM", "Mon 09:46" or "w2 Mon 09:46".
std::optional<WrittenTime> ParseWrittenTime(const std::string& text);

/// Days of the date since 1970-01-01, or of a day of the week since the first Monday; none when
/// there is no such day.
std::optional<std::int64_t> DayOf(const WrittenTime& time, DateOrder order);

/// The order that the date has by itself, as one of its parts can be no month.
std::optional<DateOrder> OrderOf(const WrittenTime& time);

/// Whether the order makes another day of the date.
bool DependsOnOrder(const WrittenTime& time);

}  // namespace qxmix
