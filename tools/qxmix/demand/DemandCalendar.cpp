#include "DemandCalendar.h"

#include "text/Dates.h"

namespace qxmix {

namespace {

std::string Padded(std::int64_t number, std::size_t digits) {
    const std::string text = std::to_string(number);
    return text.size() < digits ? std::string(digits - text.size(), '0') + text : text;
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

std::string DemandCalendar::Text(std::int64_t time) const {
    if (firstDay_) {
        const Date date = DateOf(*firstDay_ + time / kSecondsInDay);
        return Padded(date.year, 4) + "-" + MonthAndDay(date) + " " + TimeOfDay(time);
    }
    const std::int64_t day = time / kSecondsInDay;
    const std::string week =
        days_ > kDaysInWeek ? "w" + std::to_string(day / kDaysInWeek + 1) + " " : "";
    return week + kDayNames[static_cast<std::size_t>(day % kDaysInWeek)] + " " + TimeOfDay(time);
}

std::string DemandCalendar::ShortText(std::int64_t time) const {
    return firstDay_
               ? MonthAndDay(DateOf(*firstDay_ + time / kSecondsInDay)) + " " + TimeOfDay(time)
               : Text(time);
}

std::size_t DemandCalendar::WeekdayOf(std::int64_t day) const {
    constexpr std::int64_t kThursday = 3;  // 1970-01-01
    const std::int64_t number = firstDay_ ? *firstDay_ + day + kThursday : day;
    return static_cast<std::size_t>((number % kDaysInWeek + kDaysInWeek) % kDaysInWeek);
}

std::string DemandCalendar::FirstDayText() const {
    return firstDay_ ? Text(0).substr(0, 10) : "";
}

}  // namespace qxmix
