#include "sheets/SheetOptions.h"

#include "ErrorText.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <gtest/gtest.h>

namespace qxmix {
namespace {

SheetOptions Parsed(std::vector<std::string> words, bool takesNotes = false) {
    SheetOptions options;
    options.columns = {{"time", "", true}, {"amount", "", true}};
    options.takesNotes = takesNotes;
    CLI::App command;
    AddSheetOptions(command, options);
    std::reverse(words.begin(), words.end());  // as the parser takes them
    command.parse(words);
    return options;
}

/// "time=Zeit amount=": the columns with their headings.
std::string Columns(const std::string& text, bool takesNotes = false) {
    std::string told;
    for (const WantedColumn& column : Parsed({"--columns", text}, takesNotes).columns) {
        told += (told.empty() ? "" : " ") + column.name + "=" + column.heading +
                (column.isRequired ? "" : "?");
    }
    return told;
}

std::string ErrorOfOptions(std::vector<std::string> words, bool takesNotes = false) {
    return ErrorText([&] { Parsed(std::move(words), takesNotes); });
}

TEST(SheetOptions, GiveColumnsOtherNames) {
    EXPECT_EQ(Columns("time=Zeit"), "time=Zeit amount=");
    EXPECT_EQ(Columns("amount=Betrag,time=Zeit"), "time=Zeit amount=Betrag");
    EXPECT_EQ(Columns("time=Day, hour,amount=a=b"), "time=Day, hour amount=a=b")
        << "headings with a comma and an equals sign";
}

TEST(SheetOptions, TakeNotesForColumnsWhereTheyAreRead) {
    EXPECT_EQ(Columns("50=Fifties,0.50=Halves", true), "time= amount= 50=Fifties? 0.50=Halves?");
    EXPECT_EQ(ErrorOfOptions({"--columns", "50=Fifties"}),
              "--columns: unknown column \"50\"; expected one of: time, amount");
    EXPECT_EQ(ErrorOfOptions({"--columns", "fifty=Fifties"}, true),
              "--columns: unknown column \"fifty\"; expected one of: time, amount");
}

TEST(SheetOptions, NameEachColumnOnceAndWhole) {
    EXPECT_EQ(ErrorOfOptions({"--columns", "tiem=Zeit"}),
              "--columns: unknown column \"tiem\"; did you mean \"time\"?");
    EXPECT_EQ(ErrorOfOptions({"--columns", "time=a,time=b"}),
              "--columns: time given twice; expected once");
    EXPECT_EQ(ErrorOfOptions({"--columns", "time"}),
              "--columns: time names no column; expected time=NAME");
    EXPECT_EQ(ErrorOfOptions({"--columns", "time=a,amount="}),
              "--columns: amount= names no column; expected amount=NAME");
}

TEST(SheetOptions, SayWhatComesFirstInADate) {
    EXPECT_EQ(Parsed({}).dates, std::nullopt);
    EXPECT_EQ(Parsed({"--dates", "dmy"}).dates, DateOrder::DayFirst);
    EXPECT_EQ(Parsed({"--dates", "mdy"}).dates, DateOrder::MonthFirst);
    EXPECT_EQ(ErrorOfOptions({"--dates", "ymd"}),
              "--dates: ymd is not allowed; expected dmy or mdy");
}

TEST(SheetOptions, AreToldAsTheyWereGiven) {
    EXPECT_EQ(SheetWords(Parsed({})), "");
    EXPECT_EQ(SheetWords(Parsed({"--columns", "time=Zeit"})), " --columns time=Zeit");
    EXPECT_EQ(SheetWords(Parsed({"--columns", "time=a b", "--dates", "mdy"})),
              " --columns 'time=a b' --dates mdy");
    EXPECT_EQ(SheetWords(Parsed({"--dates", "dmy"})), " --dates dmy");
    EXPECT_EQ(GivenSheetOption(Parsed({})), "");
    EXPECT_EQ(GivenSheetOption(Parsed({"--dates", "dmy"})), "--dates");
    EXPECT_EQ(GivenSheetOption(Parsed({"--dates", "dmy", "--columns", "time=a"})), "--columns");
}

}  // namespace
}  // namespace qxmix
