#include "ErrorText.h"
#include "demand/RecordedDays.h"
#include "demand/RecordedDemand.h"
#include "text/Dates.h"

#include <gtest/gtest.h>
#include <map>
#include <set>

namespace qxmix {
namespace {

constexpr std::uint32_t kDays = 14;

Demand Record(const std::string& rows) {
    Dispenser dispenser;
    dispenser.currency = "EUR";
    return ReadRecordedDemand("list.csv", "time,amount\n" + rows, dispenser, RecordedSheet());
}

RecordedDays Days(const std::string& rows, std::uint32_t days) {
    return {"list.csv", Record(rows), days};
}

std::string ErrorOfDays(const std::string& rows, std::uint32_t days) {
    return ErrorText([&] { Days(rows, days); });
}

/// Four weeks from Tuesday, 2026-11-03, on: each day has as many withdrawals as its date says, and
/// all of them ask for 10 times that.
std::string FourWeeks() {
    std::string rows;
    for (int day = 3; day <= 30; ++day) {
        for (int place = 0; place < day; ++place) {
            rows += "2026-11-" + std::string(day < 10 ? "0" : "") + std::to_string(day) +
                    " 10:" + std::to_string(10 + place) + "," + std::to_string(day * 10) + "\n";
        }
    }
    return rows;
}

/// The day of November that each day of a draw is; it has to be whole.
std::vector<std::uint32_t> DatesOf(const Demand& demand) {
    std::map<std::int64_t, std::vector<Withdrawal>> byDay;
    for (const Withdrawal& withdrawal : demand.withdrawals) {
        byDay[withdrawal.time / kSecondsInDay].push_back(withdrawal);
    }
    std::vector<std::uint32_t> dates;
    for (const auto& [day, all] : byDay) {
        EXPECT_EQ(day, static_cast<std::int64_t>(dates.size()));
        dates.push_back(all.front().amount / 10);
        EXPECT_EQ(all.size(), dates.back());
        for (std::size_t place = 0; place < all.size(); ++place) {
            const std::int64_t minute = 10 * 60 + 10 + static_cast<std::int64_t>(place);
            EXPECT_EQ(all[place].time % kSecondsInDay, minute * kSecondsInMinute);
            EXPECT_EQ(all[place].amount, dates.back() * 10);
        }
    }
    return dates;
}

TEST(RecordedDays, DrawsWholeDaysOfTheRightDayOfTheWeek) {
    const RecordedDays days = Days(FourWeeks(), kDays);
    std::set<std::uint32_t> seen;
    for (std::uint32_t seed = 0; seed < 40; ++seed) {
        const std::vector<std::uint32_t> dates = DatesOf(days.Draw(seed));
        ASSERT_EQ(dates.size(), kDays);
        for (std::size_t day = 0; day < dates.size(); ++day) {
            EXPECT_EQ(dates[day] % 7, (day + 2) % 7) << "the second is a Monday";
        }
        seen.insert(dates.begin(), dates.end());
    }
    EXPECT_EQ(seen.size(), 28U) << "each day is drawn at some time";
}

TEST(RecordedDays, DrawsTheSameFromTheSameSeedOnEveryMachine) {
    const RecordedDays days = Days(FourWeeks(), kDays);
    EXPECT_EQ(DatesOf(days.Draw(1)), DatesOf(days.Draw(1)));
    EXPECT_EQ(DatesOf(days.Draw(1)),
              (std::vector<std::uint32_t>{9, 17, 18, 19, 6, 14, 8, 16, 3, 4, 5, 27, 14, 29}));
    EXPECT_NE(DatesOf(days.Draw(1)), DatesOf(days.Draw(2)));
}

TEST(RecordedDays, CountsTheDaysThatItDraws) {
    RecordedDays days = Days(FourWeeks(), 7);
    const Demand week = days.Draw(3);
    EXPECT_EQ(week.seed, 3U);
    EXPECT_EQ(week.currencies, std::vector<std::string>{"EUR"});
    EXPECT_EQ(week.calendar.Text(0), "Mon 00:00") << "of no date";
    days.SetDays(8);
    EXPECT_EQ(days.Draw(3).calendar.Text(0), "w1 Mon 00:00");
}

TEST(RecordedDays, KnowsHowMuchItDraws) {
    RecordedDays days = Days(FourWeeks(), 7);
    for (const std::uint32_t count : {7U, 1U, 30U}) {
        days.SetDays(count);
        EXPECT_EQ(days.Days(), count);
        for (std::uint32_t seed = 0; seed < 5; ++seed) {
            EXPECT_EQ(days.SizeOf(seed), days.Draw(seed).withdrawals.size());
        }
    }
}

TEST(RecordedDays, CountsADayWithoutWithdrawalsBetweenOthers) {
    // Nothing on the first Wednesday.
    const RecordedDays days = Days("w1 Mon 09:00,20\nw2 Mon 09:00,20\nw2 Wed 08:00,50\n", 3);
    std::set<std::size_t> sizes;
    for (std::uint32_t seed = 0; seed < 40; ++seed) {
        const Demand demand = days.Draw(seed);
        std::size_t onWednesday = 0;
        for (const Withdrawal& withdrawal : demand.withdrawals) {
            onWednesday += withdrawal.time / kSecondsInDay == 2 ? 1 : 0;
        }
        sizes.insert(onWednesday);
    }
    EXPECT_EQ(sizes, (std::set<std::size_t>{0, 1}));
}

TEST(RecordedDays, BeginsWithTheDayOfTheFirstWithdrawal) {
    // The Monday before it was not recorded.
    EXPECT_EQ(ErrorOfDays("w1 Tue 09:00,20\nw1 Sun 09:00,20\n", 1),
              "list.csv: no Mon in it; expected each day of the week that 1 day has");
    const RecordedDays days = Days("w1 Tue 09:00,20\nw2 Mon 09:00,50\n", 1);
    for (std::uint32_t seed = 0; seed < 10; ++seed) {
        EXPECT_EQ(days.Draw(seed).withdrawals.front().amount, 50U);
    }
}

TEST(RecordedDays, RefusesADayOfTheWeekThatTheRecordLacks) {
    const std::string rows = "2026-11-16 09:00,20\n2026-11-17 09:00,20\n";
    EXPECT_EQ(ErrorOfDays(rows, 2), "accepted");
    EXPECT_EQ(ErrorOfDays(rows, 3),
              "list.csv: no Wed in it; expected each day of the week that 3 days "
              "from a Monday on have");
    RecordedDays days = Days(rows, 2);
    EXPECT_EQ(ErrorText([&] { days.SetDays(9); }).substr(0, 24), "list.csv: no Wed in it; ");
    EXPECT_EQ(days.Days(), 2U);
}

TEST(RecordedDays, RefusesADrawThatMightBeEmpty) {
    const std::string rows = "w1 Mon 09:00,20\nw2 Tue 09:00,20\n";
    EXPECT_EQ(ErrorOfDays(rows, 2),
              "list.csv: days without any withdrawal might be all that is drawn; expected a day of "
              "the week that has some each time");
    EXPECT_EQ(ErrorOfDays(rows + "w2 Mon 09:00,20\n", 2), "accepted");
}

TEST(RecordedDays, RefusesMoreThanADemandMayHave) {
    std::string rows;
    for (int row = 0; row < 2001; ++row) {
        rows += "Mon 09:00,20\n";
    }
    rows += "Sun 09:00,20\n";
    EXPECT_EQ(ErrorOfDays(rows, 3493), "accepted");
    EXPECT_EQ(ErrorOfDays(rows, 3500),
              "list.csv: up to 1001000 withdrawals in 3500 days are too many; expected at most "
              "1000000");
    std::string two;
    for (const char* const week : {"w1", "w2"}) {
        for (int row = 0; row < 2000; ++row) {
            two += week + std::string(" Mon 09:00,20\n");
        }
    }
    EXPECT_EQ(ErrorOfDays(two, 3500), "accepted") << "500 Mondays are a million";
    EXPECT_NE(ErrorOfDays(two, 3501), "accepted");
}

}  // namespace
}  // namespace qxmix
