#include "commands/batch/LineCutter.h"
#include "files/InputFile.h"

#include <gtest/gtest.h>

namespace qxmix {
namespace {

void Add(LineCutter& cutter, const std::string& bytes) {
    cutter.Add(bytes.data(), bytes.size());
}

TEST(LineCutter, HasNoBlockBeforeALineIsWhole) {
    LineCutter cutter(10);
    EXPECT_FALSE(cutter.Next());
    Add(cutter, "ab");
    EXPECT_FALSE(cutter.Next());
    Add(cutter, "c\nd");
    EXPECT_EQ(cutter.Next()->lines, "abc\n");
    EXPECT_FALSE(cutter.Next());
}

TEST(LineCutter, GivesAtMostSoManyLinesAndCountsThem) {
    LineCutter cutter(2);
    Add(cutter, "1\n\n3\n4\n5\n");
    const auto first = cutter.Next();
    const auto second = cutter.Next();
    const auto third = cutter.Next();
    EXPECT_EQ(first->lines + second->lines + third->lines, "1\n\n3\n4\n5\n");
    EXPECT_EQ(first->firstLine, 1U);
    EXPECT_EQ(second->firstLine, 3U);
    EXPECT_EQ(third->firstLine, 5U);
    EXPECT_FALSE(cutter.Next());
}

TEST(LineCutter, TakesTheLastLineWithoutItsEnd) {
    LineCutter cutter(10);
    Add(cutter, "a\nb");
    cutter.End();
    EXPECT_EQ(cutter.Next()->lines, "a\nb\n");
    cutter.End();
    EXPECT_FALSE(cutter.Next());
}

TEST(LineCutter, PassesOverLinesThatBeginBehindTheEnd) {
    for (const std::size_t known : {3U, 4U}) {  // within a line, and at its end
        LineCutter cutter(10, LinesThere(known));
        Add(cutter, "a\nb");
        EXPECT_FALSE(cutter.IsOver());
        Add(cutter, "\nc\nd");
        EXPECT_TRUE(cutter.IsOver());
        cutter.End();
        EXPECT_EQ(cutter.Next()->lines, "a\nb\n");
        EXPECT_FALSE(cutter.Next());
    }
}

TEST(LineCutter, WaitsForTheRestOfALineThatTheEndCuts) {
    LineCutter cutter(10, LinesThere(1));
    Add(cutter, "a");
    EXPECT_FALSE(cutter.IsOver());
    Add(cutter, "b\nc\n");
    EXPECT_TRUE(cutter.IsOver());
    EXPECT_EQ(cutter.Next()->lines, "ab\n");
    EXPECT_TRUE(LineCutter(10, LinesThere(0)).IsOver());
}

TEST(LineCutter, CutsAnEndlessLine) {
    LineCutter cutter(10);
    const std::string part(100000, 'x');
    for (int count = 0; count < 30; ++count) {
        Add(cutter, part);
    }
    Add(cutter, "\nafter\n");
    EXPECT_EQ(cutter.Next()->lines, std::string(kLongestLine + 1, 'x') + "\n");
    EXPECT_EQ(cutter.Next()->lines, "after\n");
}

TEST(LineCutter, EndsABlockThatHasManyBytes) {
    LineCutter cutter(10);
    const std::string line = std::string(200000, 'x') + "\n";
    Add(cutter, line + line + line);
    EXPECT_EQ(cutter.Next()->lines, line + line);
    EXPECT_EQ(cutter.Next()->firstLine, 3U);
}

}  // namespace
}  // namespace qxmix
