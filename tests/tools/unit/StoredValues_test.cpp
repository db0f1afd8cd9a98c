#include "dispenser/StoredValues.h"

#include <gtest/gtest.h>

#include <map>

namespace qxmix {
namespace {

std::optional<std::string> TextIn(const std::string& bytes, std::uint32_t type = kRegSz) {
    return StoredText({kTraceLevel, type, bytes});
}

TEST(StoredText, EndsAtATerminatorOrAtTheEnd) {
    EXPECT_EQ(TextBytes("12"), std::string("1\0002\0\0\0", 6));
    EXPECT_EQ(TextIn(TextBytes("12")), "12");
    EXPECT_EQ(TextIn(TextBytes("12").substr(0, 4)), "12");
    EXPECT_EQ(TextIn(TextBytes("")), "");
    EXPECT_EQ(TextIn(""), "");
}

TEST(TextBytes, AreUtf16) {
    EXPECT_EQ(TextBytes("\xC2\x80\xDF\xBF"), std::string("\x80\0\xFF\x07\0\0", 6)) << "2 bytes";
    EXPECT_EQ(TextBytes("\xE0\xA0\x80\xEF\xBF\xBF"), std::string("\0\x08\xFF\xFF\0\0", 6));
    EXPECT_EQ(TextBytes("\xF0\x90\x80\x80"), std::string("\0\xD8\0\xDC\0\0", 6));
    EXPECT_EQ(TextBytes("\xF0\x9F\x98\x80"), std::string("\x3D\xD8\0\xDE\0\0", 6));
    EXPECT_EQ(TextBytes("1\xF0\x9F\x98\x80"), std::string("1\0\x3D\xD8\0\xDE\0\0", 8));
}

TEST(StoredText, IsPlainTextAlone) {
    EXPECT_EQ(TextIn(TextBytes(" a~")), " a~");
    EXPECT_EQ(TextIn(TextBytes("\x1F")), std::nullopt);
    EXPECT_EQ(TextIn(TextBytes("\x7F")), std::nullopt);
    EXPECT_EQ(TextIn(std::string("1\0\0\0002\0", 6)), std::nullopt) << "a zero within";
    EXPECT_EQ(TextIn(std::string("1\0\0A", 4)), std::nullopt) << "U+4100";
    EXPECT_EQ(TextIn(std::string("1\0002", 3)), std::nullopt) << "half a character";
    EXPECT_EQ(TextIn(TextBytes("12"), kRegDword), std::nullopt);
}

TEST(StoredValueText, NamesTheTypesOfARegistry) {
    for (const auto& [type, name] : std::map<std::uint32_t, const char*>{{0, "REG_NONE"},
                                                                         {1, "REG_SZ"},
                                                                         {2, "REG_EXPAND_SZ"},
                                                                         {3, "REG_BINARY"},
                                                                         {4, "REG_DWORD"},
                                                                         {5, "type 5"},
                                                                         {6, "type 6"},
                                                                         {7, "REG_MULTI_SZ"},
                                                                         {8, "type 8"}}) {
        EXPECT_EQ(StoredValueText({kTraceLevel, type, "\x01\xFF\xFF"}),
                  std::string(name) + " 01 ff ff");
    }
    EXPECT_EQ(StoredValueText({kTraceLevel, kRegDword, std::string(5, '\0')}),
              "REG_DWORD 00 00 00 00 00");
    EXPECT_EQ(StoredValueText({kTraceLevel, kRegDword, DwordBytes(0)}), "REG_DWORD 0");
    EXPECT_EQ(StoredValueText({kTraceLevel, kRegDword, DwordBytes(1)}), "REG_DWORD 1");
}

TEST(StoredValueText, TellsTheTypeWithTextNumberOrBytes) {
    const auto text = [](std::uint32_t type, const std::string& bytes) {
        return StoredValueText({kTraceLevel, type, bytes});
    };
    EXPECT_EQ(text(kRegSz, TextBytes("12")), "REG_SZ \"12\"");
    EXPECT_EQ(DwordBytes(0x80000102), "\x02\x01" + std::string(1, '\0') + "\x80");
    EXPECT_EQ(text(kRegDword, DwordBytes(0x80000102)), "REG_DWORD 2147483906");
    EXPECT_EQ(text(kRegDword, "\x01\xFF"), "REG_DWORD 01 ff");
    EXPECT_EQ(text(kRegSz, "\x01\xFF"), "REG_SZ 01 ff");
    const std::string sixteen = " 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61 61";
    EXPECT_EQ(text(kRegSz, std::string(16, 'a')), "REG_SZ" + sixteen);
    EXPECT_EQ(text(kRegSz, std::string(17, 'a')), "REG_SZ" + sixteen + " ...");
}

}  // namespace
}  // namespace qxmix
