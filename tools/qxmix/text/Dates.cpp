#include "Dates.h"

namespace qxmix {

namespace {

// Years begin in March below, so that the day that some have more is their last.
constexpr std::int64_t kDaysInFourCenturies = 146097;
constexpr std::int64_t kDaysBefore1970 = 719468;  // from 0000-03-01
constexpr std::int64_t kLastYear = 9999;

}  // namespace

std::optional<std::int64_t> DayNumber(const Date& date) {
    if (date.year < 1 || date.year > kLastYear || date.month < 1 || date.month > 12 ||
        date.day < 1 || date.day > 31) {
        return std::nullopt;
    }
    const std::int64_t year = date.month <= 2 ? date.year - 1 : date.year;
    const std::int64_t century = year / 400;
    const std::int64_t yearOfFour = year % 400;
    const std::int64_t month = (date.month + 9) % 12;
    const std::int64_t dayOfYear = (153 * month + 2) / 5 + date.day - 1;
    const std::int64_t day = yearOfFour * 365 + yearOfFour / 4 - yearOfFour / 100 + dayOfYear;
    const std::int64_t number = century * kDaysInFourCenturies + day - kDaysBefore1970;
    // A day that its month does not have comes back as one of the next month.
    return DateOf(number).day == date.day ? std::make_optional(number) : std::nullopt;
}

Date DateOf(std::int64_t number) {
    const std::int64_t shifted = number + kDaysBefore1970;
    const std::int64_t century = shifted / kDaysInFourCenturies;
    const std::int64_t day = shifted % kDaysInFourCenturies;
    const std::int64_t year = (day - day / 1460 + day / 36524 - day / 146096) / 365;
    const std::int64_t dayOfYear = day - (365 * year + year / 4 - year / 100);
    const std::int64_t month = (5 * dayOfYear + 2) / 153;
    const bool isNextYear = month >= 10;
    return {century * 400 + year + (isNextYear ? 1 : 0), isNextYear ? month - 9 : month + 3,
            dayOfYear - (153 * month + 2) / 5 + 1};
}

}  // namespace qxmix
