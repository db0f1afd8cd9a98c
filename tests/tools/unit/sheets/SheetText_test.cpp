#include "ErrorText.h"
#include "sheets/SheetText.h"

#include <gtest/gtest.h>

#include <string_view>

namespace qxmix {
namespace {

/// A text of ASCII and one-byte characters in UTF-16.
std::string Utf16(std::string_view text, bool isBigEndian) {
    std::string bytes;
    for (const char character : text) {
        bytes += isBigEndian ? '\0' : character;
        bytes += isBigEndian ? character : '\0';
    }
    return bytes;
}

std::string TextOf(const std::string& bytes) {
    return SheetText({"list.csv", bytes});
}

TEST(SheetText, LeavesMarksOut) {
    EXPECT_EQ(TextOf("\xEF\xBB\xBFZeit;\xE2\x82\xAC"), "Zeit;\xE2\x82\xAC");
    EXPECT_EQ(TextOf("Zeit"), "Zeit");
    EXPECT_EQ(TextOf(""), "");
    EXPECT_EQ(TextOf("\xFF\xFE" + Utf16("W\xE4hrung", false)), "W\xC3\xA4hrung");
    EXPECT_EQ(TextOf("\xFE\xFF" + Utf16("W\xE4hrung", true)), "W\xC3\xA4hrung");
}

TEST(SheetText, KnowsUtf16WithoutAMark) {
    EXPECT_EQ(TextOf(Utf16("W\xE4hrung\r\n", false)), "W\xC3\xA4hrung\r\n");
    EXPECT_EQ(TextOf(Utf16("W\xE4hrung\r\n", true)), "W\xC3\xA4hrung\r\n");
    EXPECT_EQ(ErrorText([] { TextOf(Utf16("time", false) + "x"); }),
              "list.csv: ends within a character of UTF-16; expected all of it");
}

TEST(SheetText, TakesWhatIsNoUtf8ForTheTextOfWindows) {
    EXPECT_EQ(TextOf("W\xE4hrung;\x80"), "W\xC3\xA4hrung;\xE2\x82\xAC");
}

}  // namespace
}  // namespace qxmix
