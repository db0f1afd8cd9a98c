#include "demand/DemandFile.h"

#include "ErrorText.h"
#include "TemporaryFolder.h"
#include "demand/DemandOptions.h"
#include "dispenser/InlineDispenser.h"

#include <gtest/gtest.h>

#include <fstream>

namespace qxmix {
namespace {

class DemandFiles : public ::testing::Test {
protected:
    DemandFile Read(const std::string& text,
                    const SheetOptions& sheet = RecordedSheet(),
                    std::optional<std::uint32_t> resample = std::nullopt) const {
        std::ofstream(name_, std::ios::binary) << text;
        return DemandFile(name_, sheet, resample);
    }

    DemandPattern Pattern(const std::string& text) const {
        return std::get<DemandPattern>(Read(text).For(ReadInlineDispenser("EUR:50x9")));
    }

    /// The error without the file's name.
    std::string ErrorOf(const std::string& text) const {
        const std::string error = ErrorText([&] { Read(text); });
        return error.rfind(name_ + ": ", 0) == 0 ? error.substr(name_.size() + 2) : error;
    }

    const TemporaryFolder folder_;
    const std::string name_ = folder_.Name("demand.json");
};

/// A pattern in which one field is another; an empty one is left out.
std::string With(const std::string& field, const std::string& value) {
    std::string hours = "[1";
    for (int hour = 1; hour < 24; ++hour) {
        hours += ",0";
    }
    std::map<std::string, std::string> fields = {{"days", "7"},
                                                 {"perDay", "20"},
                                                 {"hours", hours + "]"},
                                                 {"amounts", R"([{"amount":50,"weight":2}])"}};
    fields[field] = value;
    std::string json;
    for (const auto& [name, text] : fields) {
        if (!text.empty()) {
            json += std::string(json.empty() ? "" : ",") + "\"" + name + "\":" + text;
        }
    }
    return "{" + json + "}";
}

TEST_F(DemandFiles, HoldAPatternThatIsDrawnFrom) {
    const DemandPattern pattern =
        Pattern(With("amounts", R"([{"amount":50,"weight":2},{"amount":70,"weight":0}])"));
    EXPECT_EQ(pattern.days, 7U);
    EXPECT_EQ(pattern.perDay, 20U);
    EXPECT_EQ(pattern.hours.front(), 1U);
    EXPECT_EQ(pattern.hours.back(), 0U);
    ASSERT_EQ(pattern.amounts.size(), 2U);
    EXPECT_EQ(pattern.amounts[0].amount, 50U);
    EXPECT_EQ(pattern.amounts[0].weight, 2U);
    EXPECT_EQ(pattern.amounts[1].weight, 0U);
    EXPECT_FALSE(Read(With("days", "1")).IsRecorded());
    EXPECT_EQ(ErrorOf(With("$schema", "\"urn:x\"")), "accepted");
}

TEST_F(DemandFiles, SayWhatIsWrongInAPattern) {
    const auto beginsWith = [this](const std::string& field, const std::string& value,
                                   const std::string& expected) {
        EXPECT_EQ(ErrorOf(With(field, value)).substr(0, expected.size()), expected);
    };
    beginsWith("days", "", "/days: missing; expected 1 to ");
    beginsWith("days", "0", "/days: 0 is not allowed; expected 1 to ");
    beginsWith("perDay", "", "/perDay: missing; expected 1 to ");
    beginsWith("perDay", "0", "/perDay: 0 is not allowed; expected 1 to ");
    beginsWith("days", std::to_string(kMostDays + 1), "/days: ");
    beginsWith("hours", "", "/hours: missing; expected a list of 24 weights");
    beginsWith("hours", "7", "/hours: 7 is not allowed; expected a list of 24 weights");
    beginsWith("hours", "[1,2]", "/hours: 2 weights; expected 24");
    beginsWith("hours", "[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0]",
               "/hours: all weights are 0; expected at least one weight above 0");
    beginsWith("hours", "[0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,-1]", "/hours/23: -1");
    beginsWith("amounts", "", "/amounts: missing; expected a list of amounts with their weights");
    beginsWith("amounts", "{}", "/amounts: ");
    beginsWith("amounts", "[]", "/amounts: no amounts; expected at least one weight above 0");
    beginsWith("amounts", R"([{"amount":50,"weight":0}])", "/amounts: all weights are 0; expected");
    beginsWith("amounts", R"([{"amount":0,"weight":1}])", "/amounts/0/amount: 0 is not allowed");
    beginsWith("amounts", R"([{"weight":1}])",
               "/amounts/0/amount: missing; expected 1 to 4294967295");
    beginsWith("amounts", R"([{"amount":1}])",
               "/amounts/0/weight: missing; expected 0 to 4294967295");
    beginsWith("$schema", "7", "/$schema: 7 is not allowed; expected text");
    beginsWith("weekdays", "7", "/weekdays: unknown field");
}

TEST_F(DemandFiles, HoldNoMoreWithdrawalsThanCanBeAsked) {
    const std::string most = std::to_string(kMostWithdrawals / 7);
    EXPECT_EQ(ErrorOf(With("perDay", most)), "accepted");
    EXPECT_NE(ErrorOf(With("perDay", std::to_string(kMostWithdrawals / 7 + 1))).find("/perDay: "),
              std::string::npos);
}

TEST_F(DemandFiles, AreSheetsUnlessTheyBeginAsJsonDoes) {
    EXPECT_TRUE(Read("time,amount\nMon 09:46,50\n").IsRecorded());
    EXPECT_FALSE(Read("time,amount\nMon 09:46,50\n", RecordedSheet(), 3).IsRecorded());
    EXPECT_TRUE(Read("").IsRecorded());
    EXPECT_TRUE(Read(" \t\r\n").IsRecorded());
    EXPECT_FALSE(Read(" \t\r\n" + With("days", "7")).IsRecorded());
    EXPECT_EQ(ErrorOf("[1]").find("column"), std::string::npos) << "JSON, and no pattern";
    EXPECT_NE(ErrorOf("[1]"), "accepted");
}

TEST_F(DemandFiles, RefuseOptionsOfSheetsForAPattern) {
    const std::string told = ": given for withdrawals that are drawn; expected recorded ones";
    SheetOptions sheet = RecordedSheet();
    EXPECT_EQ(ErrorText([&] { Read(With("days", "7"), sheet, 3); }), "--resample" + told);
    sheet.dates = DateOrder::DayFirst;
    EXPECT_EQ(ErrorText([&] { Read(With("days", "7"), sheet); }), "--dates" + told);
    EXPECT_EQ(ErrorText([&] { Read(With("days", "7"), sheet, 3); }), "--resample" + told);
    EXPECT_EQ(ErrorText([&] { Read("time,amount\n", sheet); }), "accepted");
}

TEST(DemandOptions, NeedAFileThatTheDispenserHasNotTaken) {
    DemandOptions options;
    EXPECT_EQ(ErrorText([&] { options.Require("a.json"); }),
              "--demand: missing; expected a file of withdrawals such as examples/week.json");
    options.file = "-";
    EXPECT_EQ(ErrorText([&] { options.Require("-"); }),
              "--demand: - is taken by the dispenser; expected a file");
    EXPECT_EQ(ErrorText([&] { options.Require("a.json"); }), "accepted");
    options.file = "b.csv";
    EXPECT_EQ(ErrorText([&] { options.Require("-"); }), "accepted");
}

TEST(DemandOptions, AreToldAsTheyWereGiven) {
    DemandOptions options;
    options.file = "my week.csv";
    EXPECT_EQ(options.Words(), " --demand 'my week.csv'");
    options.resample = 7;
    EXPECT_EQ(options.Words(), " --demand 'my week.csv' --resample 7");
}

TEST(DemandOptions, HaveASeedForEachRun) {
    EXPECT_EQ(ErrorText([] { CheckSeeds(4294967295, 1); }), "accepted");
    EXPECT_EQ(ErrorText([] { CheckSeeds(4294967286, 10); }), "accepted");
    EXPECT_EQ(ErrorText([] { CheckSeeds(4294967287, 10); }),
              "--seed: 4294967287 is too large; expected at most 4294967286 for so many --runs");
}

TEST(DemandOptions, OfDrawnWithdrawalsAreRefusedForRecordedOnes) {
    EXPECT_EQ(ErrorText([] { RefuseForRecorded(nullptr); }), "accepted");
    EXPECT_EQ(ErrorText([] { RefuseForRecorded("--seed"); }),
              "--seed: given for recorded withdrawals; expected a JSON file to draw them from, or "
              "--resample");
}

}  // namespace
}  // namespace qxmix
