#include "SheetTime.h"

#include "text/Dates.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace qxmix {

namespace {

constexpr std::int64_t kMonths = 12;
constexpr std::size_t kYearDigits = 4;
constexpr std::int64_t kHoursOfHalfDay = 12;

/// Takes a text apart from its beginning on.
class Scanner {
public:
    explicit Scanner(std::string_view text) : rest_(text) {}

    bool IsAtEnd() const { return rest_.empty(); }

    bool Take(std::string_view word) {
        const bool isThere = rest_.substr(0, word.size()) == word;
        rest_.remove_prefix(isThere ? word.size() : 0);
        return isThere;
    }

    /// The one of these characters that comes next; 0: none of them.
    char TakeOneOf(std::string_view characters) {
        if (rest_.empty() || characters.find(rest_.front()) == std::string_view::npos) {
            return '\0';
        }
        const char taken = rest_.front();
        rest_.remove_prefix(1);
        return taken;
    }

    /// The digits that come next, if there are so many.
    std::optional<std::int64_t> TakeNumber(std::size_t least, std::size_t most) {
        const std::size_t end = std::min(rest_.find_first_not_of("0123456789"), rest_.size());
        if (end < least || end > most) {
            return std::nullopt;
        }
        std::int64_t number = 0;
        for (const char digit : rest_.substr(0, end)) {
            number = number * 10 + (digit - '0');
        }
        lastSize_ = end;
        rest_.remove_prefix(end);
        return number;
    }

    /// Digits of the last number.
    std::size_t LastSize() const { return lastSize_; }

    void SkipBlanks() { rest_.remove_prefix(std::min(rest_.find_first_not_of(' '), rest_.size())); }

    void SkipDigits() {
        rest_.remove_prefix(std::min(rest_.find_first_not_of("0123456789"), rest_.size()));
    }

private:
    std::string_view rest_;
    std::size_t lastSize_ = 0;
};

bool TakeDayOfWeek(Scanner& text, WrittenTime& time) {
    if (text.Take("w")) {
        const auto week = text.TakeNumber(1, 3);
        if (!week || *week == 0 || !text.Take(" ")) {
            return false;
        }
        time.year = *week;
    }
    const auto* const name = std::find_if(kDayNames.begin(), kDayNames.end(),
                                          [&text](const char* day) { return text.Take(day); });
    time.day = WrittenTime::Day::OfWeek;
    time.first = std::distance(kDayNames.begin(), name);
    return name != kDayNames.end();
}

bool TakeDate(Scanner& text, WrittenTime& time) {
    const auto one = text.TakeNumber(1, kYearDigits);
    const bool isYearFirst = text.LastSize() == kYearDigits;
    const char between = text.TakeOneOf("-./");
    const auto two = text.TakeNumber(1, 2);
    if (!one || between == '\0' || !two || text.TakeOneOf("-./") != between) {
        return false;
    }
    const auto three =
        text.TakeNumber(isYearFirst ? 1 : kYearDigits, isYearFirst ? 2 : kYearDigits);
    if (!three) {
        return false;
    }
    time.day = isYearFirst ? WrittenTime::Day::YearFirst : WrittenTime::Day::YearLast;
    time.year = isYearFirst ? *one : *three;
    time.first = isYearFirst ? *two : *one;
    time.second = isYearFirst ? *three : *two;
    return isYearFirst || *one < 100;
}

/// What stands between a day and the time of day.
bool TakeGap(Scanner& text, const WrittenTime& time) {
    if (time.day == WrittenTime::Day::YearFirst && text.Take("T")) {
        return true;
    }
    text.Take(",");
    const bool isThere = text.Take(" ");
    text.SkipBlanks();
    return isThere;
}

/// The hour of a clock with two times twelve hours, if it is one.
bool TakeHalfDay(Scanner& text, std::int64_t& hour) {
    Scanner ahead = text;
    ahead.SkipBlanks();
    const char half = ahead.TakeOneOf("AaPp");
    if (half == '\0' || ahead.TakeOneOf("Mm") == '\0') {
        return true;
    }
    text = ahead;
    const bool isSecond = half == 'P' || half == 'p';
    const bool isHour = hour >= 1 && hour <= kHoursOfHalfDay;
    hour = hour % kHoursOfHalfDay + (isSecond ? kHoursOfHalfDay : 0);
    return isHour;
}

bool TakeTimeOfDay(Scanner& text, WrittenTime& time) {
    auto hour = text.TakeNumber(1, 2);
    const bool hasMinute = text.Take(":");
    const auto minute = text.TakeNumber(2, 2);
    std::optional<std::int64_t> second = 0;
    if (text.Take(":")) {
        second = text.TakeNumber(2, 2);
        if (text.TakeOneOf(".,") != '\0') {
            text.SkipDigits();
        }
    }
    if (!hour || !hasMinute || !minute || !second || !TakeHalfDay(text, *hour) || *hour > 23 ||
        *minute > 59 || *second > 59) {
        return false;
    }
    time.seconds = *hour * kSecondsInHour + *minute * kSecondsInMinute + *second;
    return true;
}

/// "Z", "+01:00", "+0100" or "+01".
bool TakeOffset(Scanner& text, WrittenTime& time) {
    constexpr std::int64_t kMostHours = 14;
    if (text.Take("Z")) {
        time.offset = 0;
        return true;
    }
    const char sign = text.TakeOneOf("+-");
    const auto written = text.TakeNumber(2, 4);
    const std::size_t digits = text.LastSize();
    if (sign == '\0' || !written || digits == 3) {
        return false;
    }
    const std::int64_t hours = digits == 4 ? *written / 100 : *written;
    std::optional<std::int64_t> minutes = digits == 4 ? *written % 100 : 0;
    if (digits == 2 && text.Take(":")) {
        minutes = text.TakeNumber(2, 2);
    }
    if (!minutes || *minutes > 59 || hours > kMostHours) {
        return false;
    }
    const std::int64_t ahead = hours * kSecondsInHour + *minutes * kSecondsInMinute;
    time.offset = sign == '-' ? -ahead : ahead;
    return true;
}

}  // namespace

std::optional<WrittenTime> ParseWrittenTime(const std::string& text) {
    Scanner rest(text);
    WrittenTime time;
    const bool isDate = !text.empty() && text.front() >= '0' && text.front() <= '9';
    if (!(isDate ? TakeDate(rest, time) : TakeDayOfWeek(rest, time)) || !TakeGap(rest, time) ||
        !TakeTimeOfDay(rest, time)) {
        return std::nullopt;
    }
    rest.SkipBlanks();
    const bool isWhole = rest.IsAtEnd() || (isDate && TakeOffset(rest, time) && rest.IsAtEnd());
    return isWhole ? std::make_optional(time) : std::nullopt;
}

std::optional<std::int64_t> DayOf(const WrittenTime& time, DateOrder order) {
    switch (time.day) {
    case WrittenTime::Day::OfWeek:
        return (std::max<std::int64_t>(time.year, 1) - 1) * kDaysInWeek + time.first;
    case WrittenTime::Day::YearFirst:
        return DayNumber({time.year, time.first, time.second});
    case WrittenTime::Day::YearLast:
        break;
    }
    return order == DateOrder::DayFirst ? DayNumber({time.year, time.second, time.first})
                                        : DayNumber({time.year, time.first, time.second});
}

std::optional<DateOrder> OrderOf(const WrittenTime& time) {
    const bool isFirst = time.first <= kMonths;
    const bool isSecond = time.second <= kMonths;
    if (time.day != WrittenTime::Day::YearLast || isFirst == isSecond) {
        return std::nullopt;
    }
    return isSecond ? DateOrder::DayFirst : DateOrder::MonthFirst;
}

bool DependsOnOrder(const WrittenTime& time) {
    return time.day == WrittenTime::Day::YearLast && time.first != time.second;
}

}  // namespace qxmix
