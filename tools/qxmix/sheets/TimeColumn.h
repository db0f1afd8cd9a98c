#pragma once

#include "SheetTime.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace qxmix {

/// The times of a sheet's rows. What a single date leaves open (which part is the month) the whole
/// column has to decide, or who asks.
class TimeColumn {
public:
    /// @param order  as asked for; none: the column decides.
    TimeColumn(std::string file, std::optional<DateOrder> order);

    /// Takes the time of the next row. All have the same form: with a date, with a day of the week,
    /// or with that and the week; with their distance from UTC or without.
    ///
    /// @param line  of the file.
    /// @throw InputError FILE:LINE: time
    void Add(const std::string& text, std::size_t line);

    /// Seconds of each time since 1970-01-01, or since the midnight before the first Monday, by the
    /// clock that the first row was written by.
    ///
    /// @throw InputError when nothing decides which part of a date is the month.
    std::vector<std::int64_t> Seconds() const;

    /// Whether the times have a date.
    bool HasDates() const { return first_ && first_->day != WrittenTime::Day::OfWeek; }

private:
    /// One time for each order; the same twice where the order plays no part.
    struct Readings {
        std::int64_t dayFirst;
        std::int64_t monthFirst;
    };
    struct Place {
        std::string text;
        std::size_t line;
    };

    void CheckForm(const WrittenTime& time, const std::string& text, std::size_t line) const;
    void CheckOrder(const WrittenTime& time, const std::string& text, std::size_t line);
    [[noreturn]] void Fail(std::size_t line, const std::string& wrong) const;

    std::string file_;
    std::optional<DateOrder> order_;
    bool isAsked_;  // the order was asked for
    std::optional<Place> decider_;
    std::optional<Place> undecided_;
    std::optional<WrittenTime> first_;
    std::size_t firstLine_ = 0;
    std::vector<Readings> readings_;
};

}  // namespace qxmix
