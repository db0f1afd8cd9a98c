#include "ErrorText.h"
#include "demand/Demand.h"
#include "demand/Lots.h"
#include "demand/RecordedDemand.h"

#include <gtest/gtest.h>

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
    return ReadRecordedDemand({"list.csv", content}, dispenser);
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

TEST(DemandTime, KnowsEveryDayOfTheCalendar) {
    std::int64_t before = *ParseDate("1999-12-31");
    EXPECT_EQ(*ParseDate("1970-01-01"), 0);
    EXPECT_EQ(*ParseDate("2026-11-21"), 20778);
    for (const char* next : {"2000-01-01", "2000-01-02"}) {
        EXPECT_EQ(*ParseDate(next), ++before) << next;
    }
    EXPECT_EQ(*ParseDate("2000-03-01") - *ParseDate("2000-02-28"), 2);
    EXPECT_EQ(*ParseDate("2100-03-01") - *ParseDate("2100-02-28"), 1);
    EXPECT_EQ(*ParseDate("2024-12-31") - *ParseDate("2024-01-01"), 365);
}

TEST(DemandTime, NamesTheDayThatItRead) {
    for (const char* date : {"0001-01-01", "1969-12-31", "2000-02-29", "2023-03-01", "2024-02-29",
                             "2025-01-31", "2025-12-31", "2400-02-29", "9999-12-31"}) {
        EXPECT_EQ(DemandCalendar(ParseDate(date), 1).FirstDayText(), date);
    }
}

TEST(DemandTime, RefusesDaysThatThereAreNot) {
    for (const char* date : {"2023-02-29", "2100-02-29", "2023-04-31", "2023-00-10", "2023-13-01",
                             "2023-01-00", "2023-01-32", "0000-01-01", "23-01-01", "2023-1-01",
                             "2023-01", "2023-01-01-01", "2023-01--1", "+023-01-01", ""}) {
        EXPECT_FALSE(ParseDate(date)) << date;
    }
    for (const char* time : {"24:00", "12:60", "12:00:60", "1:00", "12", "12:00:00:00", "-1:00"}) {
        EXPECT_FALSE(ParseTimeOfDay(time)) << time;
    }
    EXPECT_EQ(*ParseTimeOfDay("23:59:59"), 86399);
    EXPECT_EQ(*ParseTimeOfDay("00:01"), 60);
}

TEST(DemandTime, NamesWeeksOnlyWhereThereAreSeveral) {
    const DemandCalendar week(std::nullopt, 7);
    const DemandCalendar longer(std::nullopt, 8);
    EXPECT_EQ(week.Text(6 * 86400 + 18 * 3600 + 13 * 60 + 59), "Sun 18:13");
    EXPECT_EQ(longer.Text(0), "w1 Mon 00:00");
    EXPECT_EQ(longer.Text(7 * 86400), "w2 Mon 00:00");
    const DemandCalendar dated(ParseDate("2026-12-31"), 2);
    EXPECT_EQ(dated.Text(86400 + 60), "2027-01-01 00:01");
    EXPECT_EQ(dated.ShortText(86400 + 60), "01-01 00:01");
}

TEST(RecordedDemand, ReadsColumnsByTheirNames) {
    const Demand demand = Recorded("\xEF\xBB\xBF"
                                   "currency,amount,time\r\n\r\nUSD, 50 ,2026-01-02 10:00\r\n"
                                   ",\"20\",2026-01-03T00:00:01");
    ASSERT_EQ(demand.withdrawals.size(), 2U);
    EXPECT_EQ(demand.withdrawals[0].time, 36000);
    EXPECT_EQ(demand.withdrawals[0].amount, 50U);
    EXPECT_EQ(demand.currencies, (std::vector<std::string>{"EUR", "USD"}));
    EXPECT_EQ(demand.withdrawals[0].currency, 1U);
    EXPECT_EQ(demand.withdrawals[1].time, 86401);
    EXPECT_EQ(demand.withdrawals[1].currency, 0U);
    EXPECT_FALSE(demand.seed);
}

TEST(RecordedDemand, SaysWhatIsWrongAndWhere) {
    EXPECT_EQ(ErrorText([] { Recorded("time\n"); }),
              "list.csv:1: no column amount; expected time,amount,currency");
    EXPECT_EQ(ErrorText([] { Recorded("time,time,amount\n"); }),
              "list.csv:1: column time given twice; expected once");
    EXPECT_EQ(ErrorText([] { Recorded("time,amont\n"); }),
              "list.csv:1: unknown column \"amont\"; did you mean \"amount\"?");
    EXPECT_EQ(ErrorText([] { Recorded("time,amount\n\n2026-01-01 10:00,4294967296\n"); }),
              "list.csv:3: amount: 4294967296 is not allowed; expected 0 to 4294967295 in units of "
              "1 EUR");
    EXPECT_EQ(ErrorText([] { Recorded("time,amount\n2026-01-01x10:00,1\n"); }),
              "list.csv:2: time: 2026-01-01x10:00 is not allowed; expected a time such as "
              "2026-11-16 09:46");
    EXPECT_EQ(ErrorText([] { Recorded("time,amount\n"); }),
              "list.csv: no withdrawals; expected the columns time,amount,currency and a line for "
              "each, or JSON");
}

}  // namespace
}  // namespace qxmix
