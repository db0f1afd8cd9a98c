#include "RecordedDays.h"

#include "Lots.h"
#include "errors/Errors.h"
#include "text/Dates.h"

#include <algorithm>
#include <random>
#include <utility>

namespace qxmix {

RecordedDays::RecordedDays(std::string file, Demand record, std::uint32_t days)
    : file_(std::move(file)), record_(std::make_shared<const Demand>(std::move(record))) {
    const std::vector<Withdrawal>& all = record_->withdrawals;
    std::size_t next = 0;
    const std::int64_t last = all.back().time / kSecondsInDay;
    for (std::int64_t day = all.front().time / kSecondsInDay; day <= last; ++day) {
        const std::size_t first = next;
        while (next < all.size() && all[next].time / kSecondsInDay == day) {
            ++next;
        }
        byWeekday_[record_->calendar.WeekdayOf(day)].push_back({first, next});
    }
    SetDays(days);
}

void RecordedDays::SetDays(std::uint32_t days) {
    std::uint64_t most = 0;
    bool isNeverEmpty = false;
    for (std::uint32_t day = 0; day < days; ++day) {
        const std::vector<Day>& known = byWeekday_[day % kWeekdays];
        if (known.empty()) {
            throw InputError(file_ + ": no " + kDayNames[day % kWeekdays] +
                             " in it; expected each day of the week that " + std::to_string(days) +
                             (days == 1 ? " day has" : " days from a Monday on have"));
        }
        const auto [least, largest] =
            std::minmax_element(known.begin(), known.end(), [](const Day& left, const Day& right) {
                return left.Size() < right.Size();
            });
        isNeverEmpty = isNeverEmpty || least->Size() > 0;
        most += largest->Size();
    }
    if (!isNeverEmpty) {
        throw InputError(file_ + ": days without any withdrawal might be all that is drawn; "
                                 "expected a day of the week that has some each time");
    }
    if (most > kMostWithdrawals) {
        throw InputError(file_ + ": up to " + std::to_string(most) + " withdrawals in " +
                         std::to_string(days) + " days are too many; expected at most " +
                         std::to_string(kMostWithdrawals));
    }
    days_ = days;
}

std::vector<RecordedDays::Day> RecordedDays::DaysOf(std::uint32_t seed) const {
    Lots<std::mt19937_64> lots{std::mt19937_64(seed)};
    std::vector<Day> drawn;
    for (std::uint32_t day = 0; day < days_; ++day) {
        const std::vector<Day>& known = byWeekday_[day % kWeekdays];
        drawn.push_back(known[static_cast<std::size_t>(lots.Below(known.size()))]);
    }
    return drawn;
}

std::uint64_t RecordedDays::SizeOf(std::uint32_t seed) const {
    std::uint64_t size = 0;
    for (const Day& day : DaysOf(seed)) {
        size += day.Size();
    }
    return size;
}

Demand RecordedDays::Draw(std::uint32_t seed) const {
    Demand demand;
    demand.currencies = record_->currencies;
    demand.calendar = DemandCalendar(std::nullopt, days_);
    demand.seed = seed;
    std::int64_t midnight = 0;
    for (const Day& day : DaysOf(seed)) {
        for (std::size_t place = day.first; place < day.behind; ++place) {
            Withdrawal withdrawal = record_->withdrawals[place];
            withdrawal.time = midnight + withdrawal.time % kSecondsInDay;
            demand.withdrawals.push_back(withdrawal);
        }
        midnight += kSecondsInDay;
    }
    return demand;
}

}  // namespace qxmix
