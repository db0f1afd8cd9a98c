#include "TimeColumn.h"

#include "errors/Errors.h"
#include "text/Dates.h"

#include <utility>

namespace qxmix {

namespace {

const char* WordOf(DateOrder order) {
    return order == DateOrder::DayFirst ? "day" : "month";
}

std::string FormText(const WrittenTime& time) {
    const bool isOfWeek = time.day == WrittenTime::Day::OfWeek;
    return !isOfWeek ? "a date" : time.year == 0 ? "a day of the week" : "a week and its day";
}

}  // namespace

TimeColumn::TimeColumn(std::string file, std::optional<DateOrder> order)
    : file_(std::move(file)), order_(order), isAsked_(order) {
}

void TimeColumn::Add(const std::string& text, std::size_t line) {
    const std::optional<WrittenTime> time = ParseWrittenTime(text);
    const std::optional<DateOrder> own = time ? OrderOf(*time) : std::nullopt;
    const auto day = time ? DayOf(*time, own.value_or(DateOrder::DayFirst)) : std::nullopt;
    if (!day) {
        Fail(line, NotAllowed(text, kTimeExpected));
    }
    if (!first_) {
        first_ = time;
        firstLine_ = line;
    }
    CheckForm(*time, text, line);
    CheckOrder(*time, text, line);
    const std::int64_t seconds =
        time->seconds + first_->offset.value_or(0) - time->offset.value_or(0);
    const std::int64_t other = DayOf(*time, own.value_or(DateOrder::MonthFirst)).value_or(*day);
    readings_.push_back({*day * kSecondsInDay + seconds, other * kSecondsInDay + seconds});
}

std::vector<std::int64_t> TimeColumn::Seconds() const {
    if (undecided_ && !order_) {
        Fail(undecided_->line, undecided_->text +
                                   " has its day first, or its month; expected --dates dmy or "
                                   "--dates mdy, or a row that decides it");
    }
    std::vector<std::int64_t> seconds;
    for (const Readings& readings : readings_) {
        seconds.push_back(order_ == DateOrder::MonthFirst ? readings.monthFirst
                                                          : readings.dayFirst);
    }
    return seconds;
}

void TimeColumn::CheckForm(const WrittenTime& time,
                           const std::string& text,
                           std::size_t line) const {
    if (FormText(time) != FormText(*first_)) {
        Fail(line, text + " has " + FormText(time) + "; expected " + FormText(*first_) +
                       " as in line " + std::to_string(firstLine_));
    }
    if (time.offset.has_value() != first_->offset.has_value()) {
        Fail(line, text + (time.offset ? " tells" : " does not tell") +
                       " how far it is from UTC; expected the same as in line " +
                       std::to_string(firstLine_));
    }
}

void TimeColumn::CheckOrder(const WrittenTime& time, const std::string& text, std::size_t line) {
    const std::optional<DateOrder> own = OrderOf(time);
    if (!own) {
        if (DependsOnOrder(time) && !undecided_) {
            undecided_ = Place{text, line};
        }
        return;
    }
    if (order_ && own != order_) {
        Fail(line, text + " has its " + WordOf(*own) + " first; expected the " + WordOf(*order_) +
                       " first, as " +
                       (isAsked_ ? "--dates says"
                                 : "in line " + std::to_string(decider_->line) + " (" +
                                       decider_->text + ")"));
    }
    if (!order_) {
        order_ = own;
        decider_ = Place{text, line};
    }
}

void TimeColumn::Fail(std::size_t line, const std::string& wrong) const {
    throw InputError(file_ + ":" + std::to_string(line) + ": time: " + wrong);
}

}  // namespace qxmix
