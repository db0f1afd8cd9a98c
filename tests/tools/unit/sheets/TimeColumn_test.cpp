#include "ErrorText.h"
#include "sheets/TimeColumn.h"
#include "text/Dates.h"

#include <gtest/gtest.h>

namespace qxmix {
namespace {

using Times = std::vector<std::int64_t>;

Times SecondsOf(const std::vector<std::string>& texts,
                std::optional<DateOrder> order = std::nullopt) {
    TimeColumn column("list.csv", order);
    for (std::size_t place = 0; place < texts.size(); ++place) {
        column.Add(texts[place], place + 2);
    }
    return column.Seconds();
}

std::string ErrorOfTimes(const std::vector<std::string>& texts,
                         std::optional<DateOrder> order = std::nullopt) {
    return ErrorText([&] { SecondsOf(texts, order); });
}

/// 2026-11-16 at a time of day.
std::int64_t At(std::int64_t hour, std::int64_t minute, std::int64_t second = 0) {
    return *DayNumber({2026, 11, 16}) * kSecondsInDay + hour * kSecondsInHour +
           minute * kSecondsInMinute + second;
}

TEST(TimeColumn, ReadsDatesWithTheYearFirst) {
    for (const char* text : {"2026-11-16 09:46", "2026-11-16T09:46", "2026-11-16  09:46",
                             "2026-11-16T09:46:00", "2026-11-16 9:46:00.999", "2026/11/16 9:46",
                             "2026-11-16  9:46 AM", "2026-11-16, 09:46:00,5"}) {
        EXPECT_EQ(SecondsOf({text}), Times{At(9, 46)}) << text;
    }
}

TEST(TimeColumn, ReadsDatesWithTheYearLast) {
    for (const char* text : {"16.11.2026 9:46", "16.11.2026 09:46:00", "11/16/2026 9:46",
                             "16/11/2026 09:46", "16-11-2026 9:46", "11/16/2026, 9:46:00 am"}) {
        EXPECT_EQ(SecondsOf({text}), Times{At(9, 46)}) << text;
    }
}

TEST(TimeColumn, TakesDaysAndMonthsOfOneDigit) {
    const std::int64_t day = *DayNumber({2026, 1, 6}) * kSecondsInDay;
    for (const char* text : {"2026-1-6 00:00", "2026-01-6 0:00", "2026-1-06 0:00"}) {
        EXPECT_EQ(SecondsOf({text}), Times{day}) << text;
    }
    for (const char* text : {"6.1.2026 00:00", "06.1.2026 0:00", "6.01.2026 0:00"}) {
        EXPECT_EQ(SecondsOf({text}, DateOrder::DayFirst), Times{day}) << text;
    }
}

TEST(WrittenTime, HasAllItsPartsAndNoOthers) {
    for (const char* text : {"2026--16 09:46",   "-11-16 09:46",        "2026 11 16 09:46",
                             "2026-11/16 09:46", "2026-011-16 09:46",   "2026-11-016 09:46",
                             "26-11-16 09:46",   "16.11.26 09:46",      "2026-11- 09:46",
                             "2026-11-16",       "2026-11-16 9",        "2026-11-16 :46",
                             "2026-11-16 9:4",   "2026-11-16 9:",       "2026-11-16 009:46",
                             "2026-11-16 9:46:", "2026-11-16 9:46:5",   "2026-11-16 24:00",
                             "2026-11-16 23:60", "2026-11-16 23:59:60", "2026-11-16 946",
                             "2026-11-16 9:046", "2026-11-16 9:46:005", "20261-1-16 9:46",
                             "2026-11-16 9-46",  "2026-11-169:46",      "w 10:00",
                             "w0 10:00",         "w0001 Mon 10:00",     "w1 10:00",
                             "w1Mon 10:00",      "100.11.2026 9:46",    "16.11.20261 9:46"}) {
        EXPECT_FALSE(ParseWrittenTime(text)) << text;
    }
    EXPECT_TRUE(ParseWrittenTime("2026-11-16 23:59:59"));
    EXPECT_TRUE(ParseWrittenTime("2026-11-16 0:00"));
    EXPECT_TRUE(ParseWrittenTime("2026-11-16, 0:00"));
    EXPECT_TRUE(ParseWrittenTime("w999 Mon 0:00"));
    EXPECT_TRUE(ParseWrittenTime("99.1.2026 0:00"))
        << "no day of any month, but in the form of one";
}

TEST(TimeColumn, ReadsBothHalvesOfTheDay) {
    EXPECT_EQ(SecondsOf({"2026-11-16 12:05 AM", "2026-11-16 12:05 PM", "2026-11-16 11:59pm"}),
              (Times{At(0, 5), At(12, 5), At(23, 59)}));
    EXPECT_EQ(ErrorOfTimes({"2026-11-16 13:05 PM"}).substr(0, 48),
              "list.csv:2: time: 2026-11-16 13:05 PM is not all");
    EXPECT_NE(ErrorOfTimes({"2026-11-16 0:05 AM"}), "accepted");
}

TEST(TimeColumn, ComparesTimesOfDifferentOffsetsByTheClockOfTheFirst) {
    EXPECT_EQ(SecondsOf({"2026-11-16T09:46:00+01:00", "2026-11-16T09:46:00Z",
                         "2026-11-16T09:46:00-0330", "2026-11-16 09:46 +02"}),
              (Times{At(9, 46), At(10, 46), At(14, 16), At(8, 46)}));
    EXPECT_EQ(ErrorOfTimes({"2026-11-16 09:46", "2026-11-16T09:46:00Z"}),
              "list.csv:3: time: 2026-11-16T09:46:00Z tells how far it is from UTC; expected the "
              "same as in line 2");
    EXPECT_EQ(ErrorOfTimes({"2026-11-16 09:46Z", "2026-11-16 09:46"}),
              "list.csv:3: time: 2026-11-16 09:46 does not tell how far it is from UTC; expected "
              "the same as in line 2");
}

TEST(TimeColumn, ReadsDaysOfTheWeek) {
    const std::int64_t time = 9 * kSecondsInHour + 46 * kSecondsInMinute;
    EXPECT_EQ(SecondsOf({"Mon 09:46", "Sun 9:46"}), (Times{time, 6 * kSecondsInDay + time}));
    EXPECT_EQ(SecondsOf({"w1 Mon 09:46", "w2 Mon 09:46"}), (Times{time, 7 * kSecondsInDay + time}));
    EXPECT_EQ(ErrorOfTimes({"Mon 09:46", "2026-11-16 09:46"}),
              "list.csv:3: time: 2026-11-16 09:46 has a date; expected a day of the week as in "
              "line 2");
    EXPECT_EQ(ErrorOfTimes({"w2 Mon 09:46", "Tue 09:46"}),
              "list.csv:3: time: Tue 09:46 has a day of the week; expected a week and its day as "
              "in line 2");
}

TEST(TimeColumn, LetsAnyRowDecideTheOrder) {
    const std::int64_t third = *DayNumber({2026, 4, 3}) * kSecondsInDay;
    const std::int64_t fourth = *DayNumber({2026, 3, 4}) * kSecondsInDay;
    EXPECT_EQ(SecondsOf({"03/04/2026 00:00", "16/11/2026 00:00"}), (Times{third, At(0, 0)}));
    EXPECT_EQ(SecondsOf({"11/16/2026 00:00", "03/04/2026 00:00"}), (Times{At(0, 0), fourth}));
    EXPECT_EQ(SecondsOf({"03/04/2026 00:00"}, DateOrder::DayFirst), Times{third});
    EXPECT_EQ(SecondsOf({"03/04/2026 00:00"}, DateOrder::MonthFirst), Times{fourth});
}

TEST(WrittenTime, TellsTheOrderWhereOnePartCanBeNoMonth) {
    const auto orderOf = [](const char* text) { return OrderOf(*ParseWrittenTime(text)); };
    EXPECT_EQ(orderOf("12/13/2026 9:46"), DateOrder::MonthFirst);
    EXPECT_EQ(orderOf("13/12/2026 9:46"), DateOrder::DayFirst);
    EXPECT_EQ(orderOf("12/12/2026 9:46"), std::nullopt);
    EXPECT_EQ(orderOf("13/13/2026 9:46"), std::nullopt);
    EXPECT_EQ(orderOf("2026-12-13 9:46"), std::nullopt);
    EXPECT_TRUE(DependsOnOrder(*ParseWrittenTime("11/12/2026 9:46")));
    EXPECT_FALSE(DependsOnOrder(*ParseWrittenTime("12/12/2026 9:46")));
    EXPECT_FALSE(DependsOnOrder(*ParseWrittenTime("2026-11-12 9:46")));
}

TEST(WrittenTime, TellsHowFarItIsFromUtc) {
    const auto offsetOf = [](const std::string& offset) {
        const auto time = ParseWrittenTime("2026-11-16T09:46:00" + offset);
        return time ? time->offset : std::optional<std::int64_t>(-1);
    };
    EXPECT_EQ(offsetOf(""), std::nullopt);
    EXPECT_EQ(offsetOf("Z"), 0);
    EXPECT_EQ(offsetOf("+14:00"), 14 * kSecondsInHour);
    EXPECT_EQ(offsetOf("+1400"), 14 * kSecondsInHour);
    EXPECT_EQ(offsetOf("-14"), -14 * kSecondsInHour);
    EXPECT_EQ(offsetOf("+00"), 0);
    EXPECT_EQ(offsetOf("+00:59"), 59 * kSecondsInMinute);
    EXPECT_EQ(offsetOf(" Z"), 0);
    EXPECT_EQ(offsetOf("  -00:01"), -kSecondsInMinute);
    EXPECT_EQ(offsetOf("-0159"), -kSecondsInHour - 59 * kSecondsInMinute);
    for (const char* refused : {"+15:00", "+01:60",  "+1:00",    "+010",  "01:00", "+01:", "+01:0",
                                "+00005", "+01:005", "+0100:00", "+0160", "+1500", "+15",  "+1",
                                "+",      "Z0",      "+01Z",     "ZZ",    "+-01",  "0100"}) {
        EXPECT_EQ(offsetOf(refused), -1) << refused;
    }
}

TEST(TimeColumn, GuessesNoOrder) {
    EXPECT_EQ(ErrorOfTimes({"05.05.2026 00:00", "03.04.2026 00:00", "04.03.2026 00:00"}),
              "list.csv:3: time: 03.04.2026 00:00 has its day first, or its month; expected "
              "--dates dmy or --dates mdy, or a row that decides it");
    EXPECT_EQ(SecondsOf({"05.05.2026 00:00"}), Times{*DayNumber({2026, 5, 5}) * kSecondsInDay})
        << "the order changes nothing";
    EXPECT_EQ(ErrorOfTimes({"16/11/2026 00:00", "11/16/2026 00:00"}),
              "list.csv:3: time: 11/16/2026 00:00 has its month first; expected the day first, as "
              "in line 2 (16/11/2026 00:00)");
    EXPECT_EQ(ErrorOfTimes({"16/11/2026 00:00"}, DateOrder::MonthFirst),
              "list.csv:2: time: 16/11/2026 00:00 has its day first; expected the month first, as "
              "--dates says");
}

TEST(TimeColumn, RefusesWhatIsNoTime) {
    for (const char* text : {"",
                             "2026-11-16",
                             "09:46",
                             "2026-11-16x09:46",
                             "2026-02-29 10:00",
                             "31.04.2026 10:00",
                             "16.13.2026 10:00",
                             "00.01.2026 10:00",
                             "16.11.26 10:00",
                             "2026-11-16 24:00",
                             "2026-11-16 12:60",
                             "2026-11-16 12:00:60",
                             "2026-11-16 12",
                             "2026-11-16 1:2",
                             "2026.11-16 10:00",
                             "16T11T2026 10:00",
                             "16.11.2026T10:00",
                             "2026-11-16 10:00 x",
                             "2026-11-16 10:00+1",
                             "2026-11-16 10:00+010",
                             "2026-11-16 10:00+0100:30",
                             "2026-11-16 10:00+15:00",
                             "2026-11-16 10:00+01:60",
                             "Mo 10:00",
                             "mon 10:00",
                             "w0 Mon 10:00",
                             "wMon 10:00",
                             "w2Mon 10:00",
                             "Mon 10:00Z",
                             "0000-01-01 10:00",
                             "99999-01-01 10:00",
                             "116.11.2026 10:00",
                             "2026-11-016 10:00"}) {
        EXPECT_EQ(ErrorOfTimes({text}),
                  "list.csv:2: time: " + std::string(text) +
                      " is not allowed; expected a time such as 2026-11-16 09:46");
    }
}

}  // namespace
}  // namespace qxmix
