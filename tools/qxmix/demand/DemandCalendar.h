#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace qxmix {

/// Names the times of a demand, which are seconds from its first midnight.
class DemandCalendar {
public:
    DemandCalendar() = default;

    /// @param firstDay  days since 1970-01-01; none: a Monday without a date.
    /// @param days      how many it has.
    DemandCalendar(std::optional<std::int64_t> firstDay, std::int64_t days)
        : firstDay_(firstDay), days_(days) {}

    /// "2026-11-16 09:46"; without a date "Mon 09:46", or "w2 Mon 09:46" where there is more than
    /// one week.
    std::string Text(std::int64_t time) const;

    /// The same with less room: "11-16 09:46".
    std::string ShortText(std::int64_t time) const;

    /// The day of the week of a day of the demand, counted from Monday.
    ///
    /// @param day  from its first one on.
    std::size_t WeekdayOf(std::int64_t day) const;

    /// "2026-11-16"; empty without a date.
    std::string FirstDayText() const;

private:
    std::optional<std::int64_t> firstDay_;
    std::int64_t days_ = 1;
};

}  // namespace qxmix
