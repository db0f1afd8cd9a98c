#include "ErrorText.h"
#include "sheets/SheetColumns.h"

#include <gtest/gtest.h>

namespace qxmix {
namespace {

using Lines = std::vector<std::string>;

const std::vector<WantedColumn> kWanted = {{"time", "", true},
                                           {"amount", "", true},
                                           {"currency", "", false}};

/// The wanted cells of the first row below the headings.
Lines FirstRow(const std::string& text, const std::vector<WantedColumn>& wanted = kWanted) {
    SheetColumns columns = FindColumns("list.csv", text, wanted);
    std::vector<SheetCell> row;
    columns.rows.Next(row);
    columns.CheckLength(row, "list.csv");
    Lines cells;
    for (std::size_t place = 0; place < wanted.size(); ++place) {
        cells.push_back(columns.CellOf(row, place).text);
    }
    return cells;
}

std::string ErrorOfColumns(const std::string& text,
                           const std::vector<WantedColumn>& wanted = kWanted) {
    return ErrorText([&] { FirstRow(text, wanted); });
}

TEST(SheetColumns, FindsTheSeparatorByTheHeadings) {
    const Lines expected = {"1", "2", ""};
    EXPECT_EQ(FirstRow("time,amount\n1,2"), expected);
    EXPECT_EQ(FirstRow("time;amount\n1;2"), expected);
    EXPECT_EQ(FirstRow("time\tamount\n1\t2"), expected);
    EXPECT_EQ(FirstRow("card, a, b, c;time;amount\n,,,,;1;2"), expected);
    EXPECT_EQ(FirstRow("\"time\";\"amount\"\n\"1\";2"), expected);
    EXPECT_EQ(FirstRow("sep=|\r\ntime|amount\r\n1|2"), expected);
    EXPECT_EQ(FirstRow("sep=;\ntime;amount\n1;2"), expected);
}

TEST(SheetColumns, FindsTheSeparatorThatPartsMostWhereNoHeadingIsWanted) {
    const auto error = [](const std::string& headings) {
        return ErrorOfColumns("x" + headings + "\n").substr(12);
    };
    const std::string rest = "; expected it, or --columns time=NAME";
    EXPECT_EQ(error("a,b;c;d"), "no column time in xa,b, c, d" + rest);
    EXPECT_EQ(error("a,b,c;d"), "no column time in xa, b, c;d" + rest);
    EXPECT_EQ(error("a,b;c"), "no column time in xa, b;c" + rest) << "of two the comma";
    EXPECT_EQ(FirstRow("time;amount;b,c,d,e\n1;2;x"), (Lines{"1", "2", ""}))
        << "unless another one finds more that is wanted";
}

TEST(SheetColumns, TakesColumnsInAnyOrderBesideOthers) {
    EXPECT_EQ(FirstRow("card,Currency, AMOUNT,,time\nx,USD,2,y,1"), (Lines{"1", "2", "USD"}));
    EXPECT_EQ(FindColumns("list.csv", "card,amount,time,,\"a\nb\"\n", kWanted).others,
              (Lines{"card", "a\nb"}));
}

TEST(SheetColumns, TakesTheNamesThatItIsGiven) {
    std::vector<WantedColumn> wanted = kWanted;
    wanted[0].heading = "Zeit";
    wanted[1].heading = "Betrag, EUR";
    EXPECT_EQ(FirstRow("Zeit;time;Betrag, EUR\n1;x;2", wanted), (Lines{"1", "2", ""}));
    EXPECT_EQ(ErrorOfColumns("time;Betrag, EUR\n1;2", wanted),
              "list.csv:1: no column Zeit in time, Betrag, EUR; expected --columns time=NAME");
    wanted[2].heading = "Geld";
    EXPECT_EQ(ErrorOfColumns("Zeit;Betrag, EUR\n1;2", wanted),
              "list.csv:1: no column Geld in Zeit, Betrag, EUR; expected --columns currency=NAME");
}

TEST(SheetColumns, TakesASlipForAColumnThatMayBeLeftOutUnlessItsNameIsShort) {
    EXPECT_EQ(ErrorOfColumns("time,amount,curency\n1,2,3"),
              "list.csv:1: unknown column \"curency\"; did you mean \"currency\"?");
    std::vector<WantedColumn> wanted = kWanted;
    wanted[2].name = "id";
    EXPECT_EQ(FirstRow("time,amount,in\n1,2,3", wanted), (Lines{"1", "2", ""}));
    wanted[2].name = "ids";
    EXPECT_EQ(ErrorOfColumns("time,amount,idx\n1,2,3", wanted),
              "list.csv:1: unknown column \"idx\"; did you mean \"ids\"?");
}

TEST(SheetColumns, SaysWhatIsMissing) {
    EXPECT_EQ(ErrorOfColumns("time\n"),
              "list.csv:1: no column amount in time; expected it, or --columns "
              "amount=NAME");
    EXPECT_EQ(ErrorOfColumns("\n\ntime;amont\n"),
              "list.csv:3: no column amount in time, amont; expected "
              "it, or --columns amount=amont");
    EXPECT_EQ(ErrorOfColumns("a,b,c,d,e,f,g,h,i,j\n"),
              "list.csv:1: no column time in a, b, c, d, e, f, g, h and 2 more; expected it, or "
              "--columns time=NAME");
    EXPECT_EQ(HeadingList({"a", "b", "c", "d", "e", "f", "g", "h"}), "a, b, c, d, e, f, g, h");
    EXPECT_EQ(HeadingList({"a", "b", "c", "d", "e", "f", "g", "h", "i"}),
              "a, b, c, d, e, f, g, h and 1 more");
    EXPECT_EQ(ErrorOfColumns("time,Time,amount\n"),
              "list.csv:1: column time given twice; expected once");
    EXPECT_EQ(ErrorOfColumns("time,amount,curency\n"),
              "list.csv:1: unknown column \"curency\"; did you mean \"currency\"?");
    EXPECT_EQ(ErrorOfColumns(" \n"), "list.csv: no row; expected one of column names");
    EXPECT_EQ(ErrorOfColumns("\"time\" x;amount\n"),
              "list.csv:1:8: text behind a closing quote; expected "
              "two quotes for one in a text");
}

TEST(SheetColumns, HoldsRowsToTheHeadings) {
    EXPECT_EQ(FirstRow("time,amount,card\n1,2\n"), (Lines{"1", "2", ""})) << "the others may lack";
    EXPECT_EQ(FirstRow("time,amount\n1,2,,\n"), (Lines{"1", "2", ""})) << "empty cells may follow";
    EXPECT_EQ(ErrorOfColumns("time,amount,currency\n1,2\n"), "list.csv:2: 2 columns; expected 3");
    EXPECT_EQ(ErrorOfColumns("time,amount\n1,2,,3\n"), "list.csv:2: 4 columns; expected 2");
}

}  // namespace
}  // namespace qxmix
