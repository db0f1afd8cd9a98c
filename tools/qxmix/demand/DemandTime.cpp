#include "DemandTime.h"

#include "text/ParseWhole.h"
#include "text/TextList.h"

#include <array>
#include <vector>

namespace qxmix {

namespace {

constexpr std::int64_t kSecondsInDay = 86400;
constexpr std::int64_t kSecondsInHour = 3600;
constexpr std::int64_t kSecondsInMinute = 60;
constexpr std::int64_t kDaysInWeek = 7;

// Years begin in March below, so that the day that some have more is their last.
constexpr std::int64_t kDaysInFourCenturies = 146097;
constexpr std::int64_t kDaysBefore1970 = 719468;  // from 0000-03-01

struct Date {
    std::int64_t year;
    std::int64_t month;
    std::int64_t day;
};

std::int64_t DayNumber(const Date& date) {
    const std::int64_t year = date.month <= 2 ? date.year - 1 : date.year;
    const std::int64_t century = year / 400;
    const std::int64_t yearOfFour = year % 400;
    const std::int64_t month = (date.month + 9) % 12;
    const std::int64_t dayOfYear = (153 * month + 2) / 5 + date.day - 1;
    const std::int64_t day = yearOfFour * 365 + yearOfFour / 4 - yearOfFour / 100 + dayOfYear;
    return century * kDaysInFourCenturies + day - kDaysBefore1970;
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

std::string Padded(std::int64_t number, std::size_t digits) {
    const std::string text = std::to_string(number);
    return text.size() < digits ? std::string(digits - text.size(), '0') + text : text;
}

/// A number of exactly so many digits.
std::optional<std::int64_t> ParseDigits(const std::string& text, std::size_t digits) {
    return text.size() == digits && text[0] != '-' ? ParseWhole<std::int64_t>(text) : std::nullopt;
}

std::string TimeOfDay(std::int64_t time) {
    const std::int64_t seconds = time % kSecondsInDay;
    return Padded(seconds / kSecondsInHour, 2) + ":" +
           Padded(seconds % kSecondsInHour / kSecondsInMinute, 2);
}

std::string MonthAndDay(const Date& date) {
    return Padded(date.month, 2) + "-" + Padded(date.day, 2);
}

}  // namespace

std::optional<std::int64_t> ParseDate(const std::string& text) {
    const std::vector<std::string> parts = Split(text, '-');
    if (parts.size() != 3) {
        return std::nullopt;
    }
    const auto year = ParseDigits(parts[0], 4);
    const auto month = ParseDigits(parts[1], 2);
    const auto day = ParseDigits(parts[2], 2);
    if (!year || !month || !day || *year < 1 || *month < 1 || *month > 12 || *day < 1) {
        return std::nullopt;
    }
    const std::int64_t number = DayNumber({*year, *month, *day});
    // A day that its month does not have comes back as one of the next month.
    return DateOf(number).day == *day ? std::make_optional(number) : std::nullopt;
}

std::optional<std::int64_t> ParseTimeOfDay(const std::string& text) {
    const std::vector<std::string> parts = Split(text, ':');
    if (parts.size() < 2 || parts.size() > 3) {
        return std::nullopt;
    }
    const auto hour = ParseDigits(parts[0], 2);
    const auto minute = ParseDigits(parts[1], 2);
    const auto second =
        parts.size() == 3 ? ParseDigits(parts[2], 2) : std::make_optional<std::int64_t>(0);
    if (!hour || !minute || !second || *hour > 23 || *minute > 59 || *second > 59) {
        return std::nullopt;
    }
    return *hour * kSecondsInHour + *minute * kSecondsInMinute + *second;
}

std::string DemandCalendar::Text(std::int64_t time) const {
    if (firstDay_) {
        const Date date = DateOf(*firstDay_ + time / kSecondsInDay);
        return Padded(date.year, 4) + "-" + MonthAndDay(date) + " " + TimeOfDay(time);
    }
    static const std::array<const char*, 7> names = {"Mon", "Tue", "Wed", "Thu",
                                                     "Fri", "Sat", "Sun"};
    const std::int64_t day = time / kSecondsInDay;
    const std::string week =
        days_ > kDaysInWeek ? "w" + std::to_string(day / kDaysInWeek + 1) + " " : "";
    return week + names[static_cast<std::size_t>(day % kDaysInWeek)] + " " + TimeOfDay(time);
}

std::string DemandCalendar::ShortText(std::int64_t time) const {
    return firstDay_
               ? MonthAndDay(DateOf(*firstDay_ + time / kSecondsInDay)) + " " + TimeOfDay(time)
               : Text(time);
}

std::string DemandCalendar::FirstDayText() const {
    return firstDay_ ? Text(0).substr(0, 10) : "";
}

}  // namespace qxmix
