#include "demand/DemandSource.h"

#include "ErrorText.h"
#include "demand/DemandOptions.h"
#include "demand/RecordedDemand.h"

#include <gtest/gtest.h>

#include <CLI/App.hpp>
#include <algorithm>

namespace qxmix {
namespace {

/// Two withdrawals on the first Monday, one on the second.
Demand TwoMondays() {
    Dispenser dispenser;
    dispenser.currency = "EUR";
    return ReadRecordedDemand(
        "list.csv", "card,time,amount\nx,w1 Mon 09:00,20\nx,w1 Mon 10:00,50\nx,w2 Mon 09:00,70\n",
        dispenser, RecordedSheet());
}

DemandPattern TenADay() {
    DemandPattern pattern;
    pattern.days = 3;
    pattern.perDay = 10;
    pattern.hours = std::vector<std::uint32_t>(DemandPattern::kHours, 1);
    pattern.amounts = {{20, 1}};
    return pattern;
}

TEST(DemandSource, IsAsLargeAsWhatComesOfIt) {
    const DemandSource pattern = TenADay();
    const DemandSource record = TwoMondays();
    const DemandSource days = RecordedDays("list.csv", TwoMondays(), 8);
    for (const DemandSource& source : {pattern, record, days}) {
        std::uint64_t sum = 0;
        for (std::uint32_t seed = 1; seed < 5; ++seed) {
            const Demand demand = DemandOf(source, seed, "EUR");
            EXPECT_EQ(SizeOf(source, seed), demand.withdrawals.size());
            sum += demand.withdrawals.size();
        }
        EXPECT_EQ(SizeOfRuns(source, 1, 4), sum);
        EXPECT_EQ(SizeOfRuns(source, 1, 0), 0U);
        EXPECT_EQ(SizeOfRuns(source, 2, 1), SizeOf(source, 2));
    }
    EXPECT_EQ(SizeOf(pattern, 1), 30U);
    EXPECT_EQ(SizeOf(record, 1), 3U);
}

TEST(DemandSource, HasDaysThatCanBeOthersWhereTheyAreDrawn) {
    DemandSource pattern = TenADay();
    DemandSource days = RecordedDays("list.csv", TwoMondays(), 8);
    EXPECT_EQ(DaysOf(pattern), 3U);
    EXPECT_EQ(DaysOf(days), 8U);
    EXPECT_EQ(DaysOf(DemandSource(TwoMondays())), 8U) << "of the second week the Monday";
    SetDays(pattern, 5);
    SetDays(days, 2);
    EXPECT_EQ(DaysOf(pattern), 5U);
    EXPECT_EQ(DaysOf(days), 2U);
}

TEST(DemandSource, KnowsTheRecordThatItCameFrom) {
    EXPECT_EQ(RecordOf(TenADay()), nullptr);
    EXPECT_TRUE(NotesOf(TenADay()).empty());
    const DemandSource record = TwoMondays();
    const DemandSource days = RecordedDays("list.csv", TwoMondays(), 1);
    for (const DemandSource& source : {record, days}) {
        ASSERT_NE(RecordOf(source), nullptr);
        EXPECT_EQ(RecordOf(source)->withdrawals.size(), 3U);
        ASSERT_EQ(NotesOf(source).size(), 1U);
        EXPECT_EQ(NotesOf(source).front().id, "QX702");
    }
}

/// What is wrong with an option, or "accepted".
std::string ErrorOfRunOption(const std::string& name, const std::string& number) {
    DemandOptions options;
    CLI::App command;
    AddDemandOption(command, options, "");
    AddRunOptions(command, options, "");
    std::vector<std::string> words = {number, name};  // from the last on, as the parser takes them
    return ErrorText([&] { command.parse(words); });
}

TEST(DemandOptions, HoldNumbersToTheirRange) {
    struct Range {
        const char* name;
        std::int64_t least;
        std::int64_t most;
    };
    for (const auto& [name, least, most] :
         {Range{"--seed", 0, UINT32_MAX}, Range{"--runs", 1, 10000},
          Range{"--resample", 1, kMostDays}}) {
        EXPECT_EQ(ErrorOfRunOption(name, std::to_string(least)), "accepted") << name;
        EXPECT_EQ(ErrorOfRunOption(name, std::to_string(most)), "accepted") << name;
        for (const std::int64_t beyond : {least - 1, most + 1}) {
            EXPECT_NE(ErrorOfRunOption(name, std::to_string(beyond)), "accepted")
                << name << " " << beyond;
        }
    }
}

TEST(DemandOptions, LeaveASeedForEachRun) {
    const auto error = [](std::uint32_t seed, std::uint32_t runs) {
        return ErrorText([&] { CheckSeeds(seed, runs); });
    };
    EXPECT_EQ(error(UINT32_MAX, 1), "accepted");
    EXPECT_EQ(error(UINT32_MAX - 9, 10), "accepted");
    EXPECT_EQ(error(UINT32_MAX - 8, 10), "--seed: 4294967287 is too large; expected at most "
                                         "4294967286 for so many --runs");
}

TEST(DemandOptions, NameTheFileOnce) {
    DemandOptions options;
    EXPECT_NE(ErrorText([&] { options.Require("EUR:50x9"); }), "accepted");
    options.file = "a b.csv";
    EXPECT_EQ(options.Words(), " --demand 'a b.csv'");
    options.resample = 7;
    EXPECT_EQ(options.Words(), " --demand 'a b.csv' --resample 7");
    options.Require("-");
    options.file = "-";
    options.Require("EUR:50x9");
    EXPECT_EQ(ErrorText([&] { options.Require("-"); }),
              "--demand: - is taken by the dispenser; expected a file");
    RefuseForRecorded(nullptr);
    EXPECT_NE(ErrorText([] { RefuseForRecorded("--runs"); }), "accepted");
}

}  // namespace
}  // namespace qxmix
