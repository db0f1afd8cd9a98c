#include "sheets/CsvCell.h"

#include <gtest/gtest.h>

namespace qxmix {
namespace {

TEST(CsvCell, IsTheTextWhereThatIsPlain) {
    EXPECT_EQ("", CsvCell(""));
    EXPECT_EQ("2026-11-22 10:00", CsvCell("2026-11-22 10:00"));
    EXPECT_EQ("50x2 20x1", CsvCell("50x2 20x1"));
}

TEST(CsvCell, IsQuotedWhereATextWouldBeTwoCellsOrTwoLines) {
    EXPECT_EQ("\"a,b\"", CsvCell("a,b"));
    EXPECT_EQ("\"a;b\"", CsvCell("a;b"));
    EXPECT_EQ("\"a\tb\"", CsvCell("a\tb"));
    EXPECT_EQ("\"a\nb\"", CsvCell("a\nb"));
    EXPECT_EQ("\"say \"\"a\"\"\"", CsvCell("say \"a\""));
}

TEST(CsvCell, MovesNothing) {
    EXPECT_EQ("a?b?c?", CsvCell("a\x1b"
                                "b\u202e"
                                "c\u009b"));
    EXPECT_EQ("\"a?\"\"\n?\"", CsvCell("a\x1b\"\n\u2028"));
    EXPECT_EQ("\"'=?\"", CsvCell("=\x07"));
}

TEST(CsvCell, IsNeverAFormula) {
    for (const char* text : {"=cmd|' /C calc'!A0", "+1", "-1", "@SUM(A1)", "\t=1", "\r=1"}) {
        EXPECT_EQ("\"'" + std::string(text) + "\"", CsvCell(text));
    }
    EXPECT_EQ("1=1", CsvCell("1=1"));
}

}  // namespace
}  // namespace qxmix
