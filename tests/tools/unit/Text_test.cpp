#include "commandline/CommandLine.h"
#include "commandline/HelpText.h"
#include "files/Output.h"
#include "terminal/Table.h"
#include "terminal/Terminal.h"
#include "text/TextList.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace qxmix {
namespace {

using Align = Table::Align;

const Painter kPlain(ColorMode::Never);

TEST(Printable, LeavesNothingThatMovesTheCursor) {
    EXPECT_EQ(Printable("a\x1b[2Jb\nc\r\x7f"), "a?[2Jb?c??");
    EXPECT_EQ(Printable("\xc2\x9b"), "?");
    EXPECT_EQ(Printable("\xc3\xa9 \xe2\x82\xac"), "\xc3\xa9 \xe2\x82\xac");
}

TEST(Printable, LeavesNoByteThatIsNoCharacter) {
    EXPECT_EQ(Printable("a\xff\xc2"), "a??");
    EXPECT_EQ(Printable("\x9b"
                        "31m"),
              "?31m");
    // Too long a form of an escape, half of a pair, beyond the last character, five bytes.
    EXPECT_EQ(Printable("\xc0\x9b \xe0\x80\x9b \xf0\x80\x80\x9b"), "?? ??? ????");
    EXPECT_EQ(Printable("\xed\xa0\x80 \xf4\x90\x80\x80 \xf8\x88\x80\x80\x80"), "??? ???? ?????");
    EXPECT_EQ(Printable("\xf4\x8f\xbf\xbd"), "\xf4\x8f\xbf\xbd");
}

TEST(Printable, LeavesNothingThatTurnsOrSplitsAText) {
    EXPECT_EQ(Printable("50 \xe2\x80\xae"
                        "EUR\xe2\x81\xa9\xe2\x80\xa8"),
              "50 ?EUR??");
}

TEST(Terminal, CountsAndCutsCharacters) {
    EXPECT_EQ(ColumnsOf("\xc3\xa9\xe2\x82\xac x"), 4U);
    EXPECT_EQ(CutToColumns("\xc3\xa9\xe2\x82\xac x", 2), "\xc3\xa9\xe2\x82\xac");
    EXPECT_EQ(CutToColumns("abc", 5), "abc");
    EXPECT_EQ(CutToColumns("abc", 0), "");
}

TEST(Terminal, GivesTwoColumnsToWideCharactersAndNoneToMarks) {
    const std::string wide = "\xe6\x97\xa5\xe6\x9c\xac";  // Japan
    EXPECT_EQ(ColumnsOf(wide), 4U);
    EXPECT_EQ(ColumnsOf("e\xcc\x81"), 1U);
    EXPECT_EQ(ColumnsOf("\xf0\x9f\x8f\xa7"), 2U);  // the sign of an ATM
    EXPECT_EQ(CutToColumns(wide, 3), wide.substr(0, 3));
    EXPECT_EQ(ColumnsOf("a\xff\xe6\x97"), 4U);
}

TEST(Painter, AddsColourAndNothingElse) {
    const Painter painter(ColorMode::Always);
    EXPECT_EQ(painter.Paint("PAID", "38;5;74"), "\x1b[38;5;74mPAID\x1b[0m");
    EXPECT_EQ(painter.Paint("PAID", ""), "PAID");
    EXPECT_EQ(kPlain.Paint("PAID", "38;5;74"), "PAID");
}

TEST(Table, AlignsAndLeavesNoBlanksAtLineEnds) {
    Table table({{Align::Left, 1, 4}, {Align::Right, 1, 3}, {Align::Left, 2, 5}});
    table.AddRow({"a", "1", "x"});
    table.AddRow({"bb", "", ""});
    table.AddRow({"c", "12"}, 2);
    EXPECT_EQ(table.Text(kPlain), " a      1  x\n bb\n   c     12\n");
    EXPECT_EQ(table.Width(), 16U);
}

TEST(Table, GrowsWithItsLongestCell) {
    Table table({{Align::Right, 1, 3}, {Align::Right, 1, 3}});
    table.AddRow({"1", "2"});
    table.AddRow({"4294967295", "3"});
    EXPECT_EQ(table.Text(kPlain), "          1   2\n 4294967295   3\n");
}

TEST(Table, KeepsItsColumnsWhenCellsAreColoured) {
    Table table({{Align::Right, 1, 3}, {Align::Right, 1, 3}});
    table.AddRow({Cell("X", "1;7"), "2"});
    EXPECT_EQ(table.Text(Painter(ColorMode::Always)), "   \x1b[1;7mX\x1b[0m   2\n");
}

TEST(Table, GivesUpRoomBeforeItCutsNumbers) {
    Table table({{Align::Right, 1, 6}, {Align::Right, 2, 6}});
    table.AddRow({"1", "12"});
    table.Narrow();
    EXPECT_EQ(table.Text(kPlain), " 1 12\n");
}

Table LabelTable(std::size_t labelWidth) {
    Table table({{Align::Left, 0, 0}, {Align::Right, 1, 9}});
    table.AddRow({std::string(labelWidth, 'x'), "1"});
    return table;
}

TEST(FitLabels, ShortensLabelsDownToEightColumns) {
    EXPECT_EQ(FitLabels(80, 20, LabelTable).Width(), 30U);
    EXPECT_EQ(FitLabels(30, 20, LabelTable).Width(), 30U);
    EXPECT_EQ(FitLabels(25, 20, LabelTable).Width(), 25U);
    EXPECT_EQ(FitLabels(18, 20, LabelTable).Width(), 18U);
    EXPECT_EQ(FitLabels(17, 20, LabelTable).Width(), 10U);
}

TEST(Help, OfEveryCommandFitsTheTerminalAndNamesEveryOption) {
    const CommandLine commandLine;
    for (const auto& command : commandLine.Commands()) {
        CLI::App parser;
        command->AddOptions(parser);
        CommonOptions options;
        AddCommonOptions(parser, options);
        const CommandInfo& info = command->Info();
        const std::string help = CommandHelp(info, parser);
        EXPECT_EQ(info.examples.size(), 2U) << info.name;
        EXPECT_EQ(info.sentence.back(), '.') << info.name;
        for (const std::string& line : Split(help, '\n')) {
            EXPECT_LE(line.size(), kPlainWidth) << line;
        }
        for (const char* option : {"--json", "--library", "--registry", "--registry-out",
                                   "--deadline", "--trace", "--color", "--quiet"}) {
            EXPECT_NE(help.find(option), std::string::npos) << info.name << " " << option;
        }
    }
}

TEST(Help, ListsTheCommands) {
    const std::string list = CommandList(CommandLine().Commands());
    for (const std::string& line : Split(list, '\n')) {
        EXPECT_LE(line.size(), kPlainWidth) << line;
    }
    EXPECT_NE(list.find("  mix "), std::string::npos);
    EXPECT_NE(list.find("  types "), std::string::npos);
    EXPECT_NE(list.find("  registry "), std::string::npos);
}

}  // namespace
}  // namespace qxmix
