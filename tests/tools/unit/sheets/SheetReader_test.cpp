#include "ErrorText.h"
#include "sheets/SheetReader.h"

#include <gtest/gtest.h>

namespace qxmix {
namespace {

using Rows = std::vector<std::vector<std::string>>;

Rows RowsOf(const std::string& text, char separator = ',') {
    SheetReader reader("list.csv", text, separator);
    Rows rows;
    std::vector<SheetCell> cells;
    while (reader.Next(cells)) {
        rows.emplace_back();
        for (const SheetCell& cell : cells) {
            rows.back().push_back(cell.text);
        }
    }
    return rows;
}

std::string ErrorOfSheet(const std::string& text) {
    return ErrorText([&text] { RowsOf(text); });
}

TEST(SheetReader, PartsRowsAtLineEndsOfAnySystem) {
    const Rows expected = {{"a", "b"}, {"c", ""}, {"", "d"}};
    EXPECT_EQ(RowsOf("a,b\nc,\n,d\n"), expected);
    EXPECT_EQ(RowsOf("a,b\r\nc,\r\n,d"), expected);
    EXPECT_EQ(RowsOf("a,b\rc,\r,d\r"), expected);
}

TEST(SheetReader, PassesEmptyRowsOver) {
    EXPECT_EQ(RowsOf("\n\n , \n\"\",\t\na\n,,,\n"), (Rows{{"a"}}));
    EXPECT_EQ(RowsOf(""), Rows{});
    EXPECT_EQ(RowsOf(",,"), Rows{});
}

TEST(SheetReader, PartsCellsAtItsOwnSeparatorOnly) {
    EXPECT_EQ(RowsOf("a;b,c\td;", ';'), (Rows{{"a", "b,c\td", ""}}));
    EXPECT_EQ(RowsOf("a\t b \t\tc", '\t'), (Rows{{"a", "b", "", "c"}}));
}

TEST(SheetReader, KeepsWhatQuotesProtect) {
    EXPECT_EQ(RowsOf("\"a,b\" , \"c \"\"d\"\"\",\"e\r\nf\rg\"\nh"),
              (Rows{{"a,b", "c \"d\"", "e\nf\ng"}, {"h"}}));
    EXPECT_EQ(RowsOf("5\" note,\"\"\"\",\" 1,234 \""), (Rows{{"5\" note", "\"", "1,234"}}));
}

TEST(SheetReader, CountsLinesWithinQuotes) {
    const std::string text = "\n\"a\nb\",c\r\nd";
    SheetReader reader("list.csv", text, ',');
    std::vector<SheetCell> cells;
    ASSERT_TRUE(reader.Next(cells));
    EXPECT_EQ(cells[0].line, 2U);
    EXPECT_EQ(cells[1].line, 3U);
    ASSERT_TRUE(reader.Next(cells));
    EXPECT_EQ(cells[0].line, 4U);
    EXPECT_FALSE(reader.Next(cells));
}

TEST(SheetReader, SaysWhereQuotesAreWrong) {
    EXPECT_EQ(ErrorOfSheet("a\nb, \"c\nd\n"),
              "list.csv:2:4: a quote that is never closed; expected another behind the text");
    EXPECT_EQ(ErrorOfSheet("a\n\"b"),
              "list.csv:2:1: a quote that is never closed; expected another behind the text");
    EXPECT_EQ(ErrorOfSheet("\"a\nb"),
              "list.csv:1:1: a quote that is never closed; expected another behind the text");
    EXPECT_EQ(ErrorOfSheet("\"a\" b\n"), "list.csv:1:5: text behind a closing quote; expected two "
                                         "quotes for one in a text");
    EXPECT_EQ(ErrorOfSheet("\"a\nb\"c"), "list.csv:2:3: text behind a closing quote; expected two "
                                         "quotes for one in a text");
    EXPECT_EQ(ErrorOfSheet(std::string(16384, ',')),
              "list.csv:1:16385: too many columns; expected at most 16384");
}

}  // namespace
}  // namespace qxmix
