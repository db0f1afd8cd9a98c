#include "PlatformTest.h"

namespace {

class RegistryTextWrite : public PlatformTest {
protected:
    RegistryTextWrite() { QxmixRegistryClear(); }
};

constexpr const char* kKey = "HKEY_LOCAL_MACHINE\\K";

/// What the library writes for the only value of the key K: its line or lines.
std::string WrittenValue(const char* name, std::uint32_t type, const Bytes& bytes) {
    EXPECT_EQ(QxmixRegistrySetValue(kKey, name, type, bytes.data(),
                                    static_cast<std::uint32_t>(bytes.size())),
              0);
    const std::string text = SavedAscii();
    const std::string before = "[HKEY_LOCAL_MACHINE\\K]\r\n";
    const std::size_t from = text.find(before) + before.size();
    return text.substr(from, text.find("\r\n\r\n", from) - from);
}

/// Writes, reads, and writes again.
std::string WrittenTwice() {
    EXPECT_EQ(Load(SavedText()), 0);
    return SavedText();
}

TEST_F(RegistryTextWrite, BeginsWithMarkAndHeaderAndEndsLinesWithBoth) {
    const std::string text = SavedText();
    EXPECT_EQ(text.substr(0, 6), std::string("\xFF\xFEW\0i\0", 6));
    EXPECT_EQ(SavedAscii(), "Windows Registry Editor Version 5.00\r\n\r\n");
}

TEST_F(RegistryTextWrite, WritesErrorCodesAsTheirFiveBytes) {
    EXPECT_EQ(WrittenValue("CDM", 1, BytesOf("971A5")), "\"CDM\"=hex(1):39,37,31,41,35");
}

TEST_F(RegistryTextWrite, WritesTerminatedTextAsText) {
    EXPECT_EQ(WrittenValue("T", 1, WideBytes(std::string("250\0", 4))), "\"T\"=\"250\"");
    EXPECT_EQ(WrittenValue("T", 1, {0, 0}), "\"T\"=\"\"");
    EXPECT_EQ(WrittenValue("T", 1, WideBytes(std::string("\\ \"\0", 4))), "\"T\"=\"\\\\ \\\"\"");
}

struct NoText {
    const char* name;
    Bytes bytes;
    const char* written;
};

class RegistryTextWriteBytes : public RegistryTextWrite,
                               public testing::WithParamInterface<NoText> {};

TEST_P(RegistryTextWriteBytes, InsteadOfTextThatWouldReadBackOtherwise) {
    EXPECT_EQ(WrittenValue("T", 1, GetParam().bytes), GetParam().written);
}

INSTANTIATE_TEST_SUITE_P(
    Writes,
    RegistryTextWriteBytes,
    testing::Values(NoText{"Empty", {}, "\"T\"=hex(1):"},
                    NoText{"OddLength", {'a', 0, 0}, "\"T\"=hex(1):61,00,00"},
                    NoText{"NoTerminator", {'a', 0}, "\"T\"=hex(1):61,00"},
                    NoText{"TwoTerminators", {0, 0, 0, 0}, "\"T\"=hex(1):00,00,00,00"},
                    NoText{"InnerTerminator",
                           {'a', 0, 0, 0, 'b', 0, 0, 0},
                           "\"T\"=hex(1):61,00,00,00,62,00,00,00"},
                    NoText{"LineFeed", {10, 0, 0, 0}, "\"T\"=hex(1):0a,00,00,00"},
                    NoText{"CarriageReturn", {13, 0, 0, 0}, "\"T\"=hex(1):0d,00,00,00"},
                    NoText{"HighSurrogate", {0x3D, 0xD8, 0, 0}, "\"T\"=hex(1):3d,d8,00,00"},
                    NoText{"LowSurrogate", {0x00, 0xDE, 0, 0}, "\"T\"=hex(1):00,de,00,00"}),
    [](const testing::TestParamInfo<NoText>& test) { return std::string(test.param.name); });

TEST_F(RegistryTextWrite, WritesNumbersAndTheirOddForms) {
    EXPECT_EQ(WrittenValue("N", 4, {0x84, 3, 2, 1}), "\"N\"=dword:01020384");
    EXPECT_EQ(WrittenValue("N", 4, {1, 2, 3}), "\"N\"=hex(4):01,02,03");
    EXPECT_EQ(WrittenValue("N", 4, {1, 2, 3, 4, 5}), "\"N\"=hex(4):01,02,03,04,05");
}

TEST_F(RegistryTextWrite, WritesOtherTypesAsBytes) {
    EXPECT_EQ(WrittenValue("B", 3, {0, 0xFF}), "\"B\"=hex:00,ff");
    EXPECT_EQ(WrittenValue("B", 0, {}), "\"B\"=hex(0):");
    EXPECT_EQ(WrittenValue("B", 7, {0, 0}), "\"B\"=hex(7):00,00");
    EXPECT_EQ(WrittenValue("B", 0xFFFFFFFF, {1}), "\"B\"=hex(ffffffff):01");
}

TEST_F(RegistryTextWrite, ContinuesLongBytesInFurtherLines) {
    const std::string lines = WrittenValue("B", 3, Bytes(50, 1));
    EXPECT_EQ(lines, "\"B\"=hex:01,01,01,01,01,01,01,01,01,01,01,01,01,01,01,01,01,01,01,01,01,"
                     "01,01,\\\r\n  "
                     "01,01,01,01,01,01,01,01,01,01,01,01,01,01,01,01,01,01,01,01,01,01,01,01,01,"
                     "\\\r\n  01,01");
}

TEST_F(RegistryTextWrite, ContinuesNoLineThatJustFits) {
    const std::string full = "\"BCD\"=hex:01,01,01,01,01,01,01,01,01,01,01,01,01,01,01,01,01,01,01,"
                             "01,01,01,01";
    EXPECT_EQ(WrittenValue("BCD", 3, Bytes(23, 1)), full);
    EXPECT_EQ(WrittenValue("BCD", 3, Bytes(24, 1)), full + ",\\\r\n  01");
}

TEST_F(RegistryTextWrite, EscapesNamesAndMarksTheKeysOwnValue) {
    EXPECT_EQ(WrittenValue("a\\\"", 4, {1, 0, 0, 0}), "\"a\\\\\\\"\"=dword:00000001");
    QxmixRegistryClear();
    EXPECT_EQ(WrittenValue("", 4, {1, 0, 0, 0}), "@=dword:00000001");
}

TEST_F(RegistryTextWrite, OrdersKeysAndValuesByName) {
    for (const char* key : {"HKEY_LOCAL_MACHINE\\b", "HKEY_LOCAL_MACHINE\\A!",
                            "HKEY_LOCAL_MACHINE\\A\\z", "HKEY_CLASSES_ROOT\\q"}) {
        ASSERT_EQ(QxmixRegistryCreateKey(key), 0);
    }
    for (const char* name : {"b", "", "A"}) {
        ASSERT_EQ(QxmixRegistrySetNumber("HKEY_LOCAL_MACHINE", name, 0), 0);
    }
    EXPECT_EQ(SavedAscii(), "Windows Registry Editor Version 5.00\r\n\r\n"
                            "[HKEY_CLASSES_ROOT\\q]\r\n\r\n"
                            "[HKEY_LOCAL_MACHINE]\r\n"
                            "@=dword:00000000\r\n\"A\"=dword:00000000\r\n\"b\"=dword:00000000\r\n"
                            "\r\n"
                            "[HKEY_LOCAL_MACHINE\\A]\r\n\r\n"
                            "[HKEY_LOCAL_MACHINE\\A\\z]\r\n\r\n"
                            "[HKEY_LOCAL_MACHINE\\A!]\r\n\r\n"
                            "[HKEY_LOCAL_MACHINE\\b]\r\n\r\n");
}

TEST_F(RegistryTextWrite, GivesTheSameBytesAfterReadingThemBack) {
    HKEY key = nullptr;
    ASSERT_EQ(Create(HKEY_CLASSES_ROOT, u"WOSA/XFS_ROOT\\a]b", &key), ERROR_SUCCESS);
    const Bytes odd[] = {{},           {0},          {0, 0},           {10, 0, 0, 0},
                         {0x3D, 0xD8}, {1, 2, 3, 4}, BytesOf("971A5"), Bytes(300, 0xA5)};
    char16_t name[] = u"0 \u00E4\xD83D";
    for (const DWORD type : {0U, 1U, 2U, 3U, 4U, 7U, 0x80000000U}) {
        for (const Bytes& bytes : odd) {
            ASSERT_EQ(Set(key, name, type, bytes), ERROR_SUCCESS);
            ++name[0];
        }
    }
    const std::string once = SavedText();
    EXPECT_EQ(WrittenTwice(), once);
    EXPECT_EQ(WrittenTwice(), once);
}

TEST_F(RegistryTextWrite, RefusesNamesWithALineBreak) {
    HKEY key = nullptr;
    std::size_t size = 99;
    ASSERT_EQ(Create(HKEY_LOCAL_MACHINE, u"a\nb", &key), ERROR_SUCCESS);
    EXPECT_EQ(QxmixRegistrySaveText(nullptr, 0, &size), kQxmixErrorInvalidData);
    EXPECT_EQ(size, 0U);
    QxmixRegistryClear();
    ASSERT_EQ(Set(HKEY_LOCAL_MACHINE, u"a\rb", 4, {}), ERROR_SUCCESS);
    EXPECT_EQ(QxmixRegistrySaveText(nullptr, 0, &size), kQxmixErrorInvalidData);
}

TEST_F(RegistryTextWrite, WritesNothingIntoTooLittleRoom) {
    std::size_t size = 0;
    std::string room(10, '!');
    EXPECT_EQ(QxmixRegistrySaveText(room.data(), room.size(), &size), kQxmixErrorMoreData);
    EXPECT_EQ(room, std::string(10, '!'));
    EXPECT_EQ(size, SavedText().size());
}

}  // namespace
