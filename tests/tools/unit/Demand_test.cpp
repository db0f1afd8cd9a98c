#include "ErrorText.h"
#include "demand/Demand.h"
#include "demand/Lots.h"
#include "demand/RecordedDemand.h"
#include "text/Dates.h"

#include <gtest/gtest.h>

#include <map>

namespace qxmix {
namespace {

DemandPattern Pattern() {
    DemandPattern pattern;
    pattern.days = 3;
    pattern.perDay = 200;
    pattern.hours = std::vector<std::uint32_t>(DemandPattern::kHours, 0);
    pattern.hours[9] = 1;
    pattern.hours[23] = 3;
    pattern.amounts = {{20, 1}, {50, 0}, {100, 4294967295}};
    return pattern;
}

Demand Recorded(const std::string& content) {
    Dispenser dispenser;
    dispenser.currency = "EUR";
    return ReadRecordedDemand("list.csv", content, dispenser, RecordedSheet());
}

/// Gives the numbers that it was made of, one after the other.
class Prepared {
public:
    explicit Prepared(std::vector<std::uint64_t> numbers) : numbers_(std::move(numbers)) {}
    std::uint64_t operator()() { return numbers_.at(next_++); }

private:
    std::vector<std::uint64_t> numbers_;
    std::size_t next_ = 0;
};

std::uint64_t Below(std::uint64_t n, const std::vector<std::uint64_t>& numbers) {
    return Lots<Prepared>(Prepared(numbers)).Below(n);
}

std::size_t Pick(std::uint64_t drawn) {
    return Lots<Prepared>(Prepared({drawn})).Pick({0, 2, 0, 1, 3});
}

TEST(Lots, DrawsAgainAboveTheLastWholeMultiple) {
    // 2^64 is one more than a multiple of 3, two more than one of 7, and one of 2^63.
    EXPECT_EQ(Below(3, {UINT64_MAX, 5}), 2U);
    EXPECT_EQ(Below(3, {UINT64_MAX - 1}), 2U);
    EXPECT_EQ(Below(7, {UINT64_MAX, UINT64_MAX - 1, UINT64_MAX - 2}), 6U);
    EXPECT_EQ(Below(std::uint64_t{1} << 63U, {UINT64_MAX}), (std::uint64_t{1} << 63U) - 1);
    EXPECT_EQ(Below(1, {UINT64_MAX}), 0U);
}

TEST(Lots, PicksByWeightInTheOrderOfTheList) {
    EXPECT_EQ(Pick(0), 1U);
    EXPECT_EQ(Pick(1), 1U);
    EXPECT_EQ(Pick(2), 3U);
    EXPECT_EQ(Pick(3), 4U);
    EXPECT_EQ(Pick(5), 4U);
    EXPECT_EQ(Pick(6), 1U);
}

TEST(DrawDemand, DrawsTheSameFromTheSameSeed) {
    const Demand one = DrawDemand(Pattern(), 7, "EUR");
    const Demand two = DrawDemand(Pattern(), 7, "EUR");
    const Demand other = DrawDemand(Pattern(), 8, "EUR");
    ASSERT_EQ(one.withdrawals.size(), 600U);
    ASSERT_EQ(two.withdrawals.size(), 600U);
    bool isOther = false;
    for (std::size_t index = 0; index < 600; ++index) {
        EXPECT_EQ(one.withdrawals[index].time, two.withdrawals[index].time);
        EXPECT_EQ(one.withdrawals[index].amount, two.withdrawals[index].amount);
        isOther = isOther || one.withdrawals[index].time != other.withdrawals[index].time;
    }
    EXPECT_TRUE(isOther);
}

TEST(DrawDemand, SaysWhatItDrew) {
    DemandPattern pattern = Pattern();
    const Demand week = DrawDemand(pattern, 7, "USD");
    EXPECT_EQ(week.currencies, std::vector<std::string>{"USD"});
    EXPECT_EQ(week.seed, 7U);
    EXPECT_EQ(week.calendar.Text(0), "Mon 00:00");
    pattern.days = 8;
    EXPECT_EQ(DrawDemand(pattern, 7, "USD").calendar.Text(0), "w1 Mon 00:00");
}

TEST(DrawDemand, DrawsOnlyWhatHasWeight) {
    for (const Withdrawal& withdrawal : DrawDemand(Pattern(), 1, "EUR").withdrawals) {
        const std::int64_t hour = withdrawal.time / 3600 % 24;
        EXPECT_TRUE(hour == 9 || hour == 23) << hour;
        EXPECT_NE(withdrawal.amount, 50U);
    }
}

TEST(DrawDemand, SortsEachDay) {
    const Demand demand = DrawDemand(Pattern(), 1, "EUR");
    for (std::size_t index = 1; index < demand.withdrawals.size(); ++index) {
        EXPECT_LE(demand.withdrawals[index - 1].time, demand.withdrawals[index].time);
        EXPECT_EQ(demand.withdrawals[index].time / 86400, static_cast<std::int64_t>(index / 200));
    }
}

TEST(Dates, KnowEveryDayOfTheCalendar) {
    std::int64_t before = *DayNumber({1999, 12, 31});
    EXPECT_EQ(*DayNumber({1970, 1, 1}), 0);
    EXPECT_EQ(*DayNumber({2026, 11, 21}), 20778);
    EXPECT_EQ(*DayNumber({2000, 1, 1}), ++before);
    EXPECT_EQ(*DayNumber({2000, 1, 2}), ++before);
    EXPECT_EQ(*DayNumber({2000, 3, 1}) - *DayNumber({2000, 2, 28}), 2);
    EXPECT_EQ(*DayNumber({2100, 3, 1}) - *DayNumber({2100, 2, 28}), 1);
    EXPECT_EQ(*DayNumber({2024, 12, 31}) - *DayNumber({2024, 1, 1}), 365);
}

TEST(Dates, NameTheDayThatTheyWere) {
    for (const Date& date :
         {Date{1, 1, 1}, Date{1969, 12, 31}, Date{2000, 2, 29}, Date{2023, 3, 1}, Date{2024, 2, 29},
          Date{2025, 1, 31}, Date{2400, 2, 29}, Date{9999, 12, 31}}) {
        const Date again = DateOf(*DayNumber(date));
        EXPECT_EQ(again.year, date.year);
        EXPECT_EQ(again.month, date.month);
        EXPECT_EQ(again.day, date.day);
    }
}

TEST(Dates, RefuseDaysThatThereAreNot) {
    for (const Date& date : {Date{2023, 2, 29}, Date{2100, 2, 29}, Date{2023, 4, 31},
                             Date{2023, 0, 10}, Date{2023, 13, 1}, Date{2023, 1, 0},
                             Date{2023, 1, 32}, Date{0, 1, 1}, Date{10000, 1, 1}}) {
        EXPECT_FALSE(DayNumber(date)) << date.year << " " << date.month << " " << date.day;
    }
}

TEST(DemandCalendar, NamesWeeksOnlyWhereThereAreSeveral) {
    const DemandCalendar week(std::nullopt, 7);
    const DemandCalendar longer(std::nullopt, 8);
    EXPECT_EQ(week.Text(6 * 86400 + 18 * 3600 + 13 * 60 + 59), "Sun 18:13");
    EXPECT_EQ(longer.Text(0), "w1 Mon 00:00");
    EXPECT_EQ(longer.Text(7 * 86400), "w2 Mon 00:00");
    const DemandCalendar dated(DayNumber({2026, 12, 31}), 2);
    EXPECT_EQ(dated.Text(86400 + 60), "2027-01-01 00:01");
    EXPECT_EQ(dated.ShortText(86400 + 60), "01-01 00:01");
    EXPECT_EQ(dated.FirstDayText(), "2026-12-31");
    EXPECT_EQ(week.FirstDayText(), "");
    EXPECT_EQ(week.ShortText(86400), "Tue 00:00");
    EXPECT_EQ(longer.ShortText(13 * 86400 + 86399), "w2 Sun 23:59");
    const DemandCalendar early(DayNumber({33, 2, 3}), 2);
    EXPECT_EQ(early.Text(9 * 3600 + 7 * 60), "0033-02-03 09:07");
}

TEST(DemandCalendar, KnowsTheWeekdayOfEachDay) {
    const DemandCalendar weeks(std::nullopt, 14);
    const DemandCalendar monday(DayNumber({2026, 11, 16}), 14);
    const DemandCalendar thursday(DayNumber({1970, 1, 1}), 14);
    const DemandCalendar before(DayNumber({1969, 12, 22}), 14);  // a Monday
    for (std::int64_t day = 0; day < 14; ++day) {
        const auto place = static_cast<std::size_t>(day % 7);
        EXPECT_EQ(weeks.WeekdayOf(day), place);
        EXPECT_EQ(monday.WeekdayOf(day), place);
        EXPECT_EQ(thursday.WeekdayOf(day), (place + 3) % 7);
        EXPECT_EQ(before.WeekdayOf(day), place);
    }
}

/// The times of the withdrawals and what was noted.
using Read = std::pair<std::vector<std::int64_t>, std::vector<std::string>>;

Read TimesAndNotes(const std::string& content) {
    const Demand demand = Recorded(content);
    Read read;
    for (const Withdrawal& withdrawal : demand.withdrawals) {
        read.first.push_back(withdrawal.time);
    }
    for (const Finding& note : demand.notes) {
        EXPECT_EQ(note.severity, Severity::Note);
        read.second.push_back(note.id + " " + note.message);
    }
    return read;
}

TEST(RecordedDemand, ReadsColumnsByTheirNames) {
    const Demand demand = Recorded("currency,amount,time\r\n\r\nUSD, 50 ,2026-01-02 10:00\r\n"
                                   ",\"20\",2026-01-03T00:00:01");
    ASSERT_EQ(demand.withdrawals.size(), 2U);
    EXPECT_EQ(demand.withdrawals[0].time, 36000);
    EXPECT_EQ(demand.withdrawals[0].amount, 50U);
    EXPECT_EQ(demand.currencies, (std::vector<std::string>{"EUR", "USD"}));
    EXPECT_EQ(demand.withdrawals[0].currency, 1U);
    EXPECT_EQ(demand.withdrawals[1].time, 86401);
    EXPECT_EQ(demand.withdrawals[1].currency, 0U);
    EXPECT_FALSE(demand.seed);
    EXPECT_TRUE(demand.notes.empty());
}

TEST(RecordedDemand, SortsRowsAndSaysSo) {
    EXPECT_EQ(
        TimesAndNotes("time,amount\n2026-01-02 10:00,1\n2026-01-01 09:00,2\n"
                      "2026-01-03 00:00,3\n2026-01-01 09:00,4\n"),
        (Read{{32400, 32400, 122400, 172800},
              {"QX701 list.csv:3: 2 rows stand below a later one; all were sorted by time"}}));
    const Demand demand = Recorded("time,amount\n1969-12-31 10:00,1\n1969-12-30 09:00,2\n"
                                   "1969-12-30 09:00,3\n");
    EXPECT_EQ(demand.calendar.Text(demand.withdrawals[0].time), "1969-12-30 09:00");
    EXPECT_EQ(demand.withdrawals[0].amount, 2U) << "rows of one time keep their order";
    EXPECT_EQ(demand.withdrawals[1].amount, 3U);
    EXPECT_EQ(demand.withdrawals[2].amount, 1U);
}

TEST(RecordedDemand, SaysWhichColumnsItPassesOver) {
    EXPECT_EQ(TimesAndNotes("card,time,amount,branch\nx,2026-01-02 10:00,1,y\n"),
              (Read{{36000}, {"QX702 list.csv: columns passed over: card, branch"}}));
}

TEST(RecordedDemand, CountsDaysOfTheWeekFromTheFirstMonday) {
    const Demand week = Recorded("time,amount\nTue 00:01,1\nSun 00:00,1\n");
    EXPECT_EQ(week.withdrawals[0].time, 86460);
    EXPECT_EQ(week.calendar.Text(86460), "Tue 00:01");
    const Demand weeks = Recorded("time,amount\nw1 Tue 00:01,1\nw2 Mon 00:00,1\n");
    EXPECT_EQ(weeks.calendar.Text(86460), "w1 Tue 00:01");
    EXPECT_EQ(weeks.withdrawals[1].time, 7 * 86400);
}

TEST(RecordedDemand, ReadsMoneyWhereOneAmountHasDecimals) {
    Dispenser dispenser;
    dispenser.currency = "CHF";
    dispenser.exponent = -2;
    const Demand demand = ReadRecordedDemand(
        "list.csv", "time;amount\nMon 10:00;70\nMon 11:00;70,50", dispenser, RecordedSheet());
    EXPECT_EQ(demand.withdrawals[0].amount, 7000U);
    EXPECT_EQ(demand.withdrawals[1].amount, 7050U);
    ASSERT_EQ(demand.notes.size(), 1U);
    EXPECT_EQ(demand.notes[0].message,
              "list.csv: amounts are read as money in CHF, since one is 70,50");
}

TEST(RecordedDemand, SaysWhatIsWrongAndWhere) {
    EXPECT_EQ(ErrorText([] { Recorded("time,amount\n\n\"2026-01-01 10:00\",\"5\n0\"\n"); }),
              "list.csv:3: amount: 5\n0 is not allowed; expected 0 to 4294967295 in units of "
              "1 EUR");
    EXPECT_EQ(ErrorText([] { Recorded("time,amount\n2026-01-01x10:00,1\n"); }),
              "list.csv:2: time: 2026-01-01x10:00 is not allowed; expected a time such as "
              "2026-11-16 09:46");
    EXPECT_EQ(ErrorText([] { Recorded("time,amount,currency\n2026-01-01 10:00,1,Euro\n"); }),
              "list.csv:2: currency: Euro is not allowed; expected three capital letters such as "
              "EUR");
    EXPECT_EQ(ErrorText([] { Recorded("time,amount\n"); }),
              "list.csv: no withdrawals; expected the columns time,amount,currency and a line for "
              "each, or JSON");
    EXPECT_EQ(ErrorText([] { Recorded("time,money\n2026-01-01 10:00,1\n"); }),
              "list.csv:1: no column amount in time, money; expected it, or --columns amount=NAME");
    EXPECT_EQ(ErrorText([] { Recorded("when,amount\n2026-01-01 10:00,1\n"); }),
              "list.csv:1: no column time in when, amount; expected it, or --columns time=NAME");
    EXPECT_EQ(ErrorText([] { Recorded("time,amount\n2026-01-01 10:00,1,2\n"); }),
              "list.csv:2: 3 columns; expected 2");
}

TEST(RecordedDemand, TellsTheFirstRowThatIsLate) {
    const auto note = [](const char* rows) {
        const Read read = TimesAndNotes(std::string("time,amount\n") + rows);
        return read.second.empty() ? "" : read.second.front();
    };
    EXPECT_EQ(note("Mon 10:00,1\nMon 10:00,2\nMon 10:01,3\n"), "") << "at the same time";
    EXPECT_EQ(note("Mon 10:00,1\nMon 09:59,2\n"),
              "QX701 list.csv:3: 1 row stands below a later one; all were sorted by time");
    EXPECT_EQ(note("Mon 10:00,1\nMon 09:00,2\nMon 09:30,3\nMon 11:00,4\nMon 08:00,5\n"),
              "QX701 list.csv:3: 3 rows stand below a later one; all were sorted by time")
        << "of all before it the latest counts";
}

TEST(RecordedDemand, CountsFromTheMidnightBeforeItsFirstRow) {
    for (const char* const day : {"1970-01-01", "1969-12-31", "2026-11-16"}) {
        for (const auto& [time, seconds] :
             std::map<std::string, std::int64_t>{{"00:00:00", 0}, {"23:59:59", 86399}}) {
            const Demand demand =
                Recorded("time,amount\n" + std::string(day) + " " + time + ",1\n");
            EXPECT_EQ(demand.withdrawals.front().time, seconds) << day << time;
            EXPECT_EQ(demand.calendar.FirstDayText(), day);
        }
    }
}

TEST(RecordedDemand, KnowsEachCurrencyByItsPlace) {
    const Demand demand = Recorded("time,amount,currency\nMon 10:00,1,USD\nMon 10:01,2,CHF\n"
                                   "Mon 10:02,3,USD\nMon 10:03,4,EUR\nMon 10:04,5,\n");
    EXPECT_EQ(demand.currencies, (std::vector<std::string>{"EUR", "USD", "CHF"}));
    std::vector<std::size_t> places;
    for (const Withdrawal& withdrawal : demand.withdrawals) {
        places.push_back(withdrawal.currency);
    }
    EXPECT_EQ(places, (std::vector<std::size_t>{1, 2, 1, 0, 0}));
}

}  // namespace
}  // namespace qxmix
