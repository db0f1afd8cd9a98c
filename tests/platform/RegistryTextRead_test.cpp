#include "PlatformTest.h"

namespace {

class RegistryTextRead : public PlatformTest {};

constexpr const char* kKey = "HKEY_LOCAL_MACHINE\\K";

/// Loads value lines of the key K under a version 5.00 header; the test fails when refused.
void LoadValues(const std::string& lines,
                const std::string& header = "Windows Registry Editor Version 5.00") {
    QxmixTextError error;
    EXPECT_EQ(Load(header + "\n[HKEY_LOCAL_MACHINE\\K]\n" + lines, &error), 0)
        << error.line << ": " << error.message;
}

/// ASCII text as UTF-16LE with its mark.
std::string Utf16(const std::string& ascii) {
    const Bytes wide = WideBytes(ascii);
    return "\xFF\xFE" + std::string(wide.begin(), wide.end());
}

TEST_F(RegistryTextRead, ReplacesTheStartContent) {
    EXPECT_EQ(Load("REGEDIT4\n\n[HKEY_LOCAL_MACHINE\\K]\n"), 0);
    EXPECT_EQ(QxmixRegistryKeyExists(kKey), 1);
    EXPECT_EQ(QxmixRegistryKeyExists(kErrorCodeKey), 0);
}

TEST_F(RegistryTextRead, TakesAHeaderAlone) {
    EXPECT_EQ(Load("REGEDIT4"), 0);
    EXPECT_EQ(Load("REGEDIT4 \t\r\n"), 0);
    EXPECT_EQ(Load("Windows Registry Editor Version 5.00\r\n"), 0);
    EXPECT_EQ(QxmixRegistryKeyExists("HKEY_LOCAL_MACHINE\\SOFTWARE"), 0);
}

TEST_F(RegistryTextRead, TakesUtf8WithAndWithoutMark) {
    const std::string text = "REGEDIT4\n[HKEY_LOCAL_MACHINE\\K]\n\"\xC3\xA4\"=\"\xE2\x82\xAC\"\n";
    for (const std::string& bytes : {text, "\xEF\xBB\xBF" + text}) {
        QxmixRegistryClear();
        EXPECT_EQ(Load(bytes), 0);
        EXPECT_EQ(StoredBytes(kKey, "\xC3\xA4"), (Bytes{0xAC, 0x20, 0, 0}));
    }
}

TEST_F(RegistryTextRead, TakesUtf16WithItsMark) {
    EXPECT_EQ(Load(Utf16("Windows Registry Editor Version 5.00\r\n\r\n"
                         "[HKEY_LOCAL_MACHINE\\K]\r\n\"N\"=dword:0000000a\r\n")),
              0);
    EXPECT_EQ(StoredBytes(kKey, "N"), (Bytes{10, 0, 0, 0}));
}

TEST_F(RegistryTextRead, TakesLineFeedsWithAndWithoutCarriageReturn) {
    LoadValues("\"A\"=dword:1\r\n\"B\"=dword:2\n\"C\"=dword:3");
    EXPECT_EQ(StoredBytes(kKey, "A")[0], 1);
    EXPECT_EQ(StoredBytes(kKey, "B")[0], 2);
    EXPECT_EQ(StoredBytes(kKey, "C")[0], 3);
}

TEST_F(RegistryTextRead, SkipsBlankLinesAndComments) {
    LoadValues("\n  \t\n; \"A\"=dword:1\n  ; more\n\"B\"=dword:2 ; behind\n"
               "\"T\"=\"a;b\";c\n\"H\"=hex:01,02;03\n");
    EXPECT_EQ(QxmixRegistryGetValue(kKey, "A", nullptr, nullptr, nullptr), 2);
    EXPECT_EQ(StoredBytes(kKey, "B")[0], 2);
    EXPECT_EQ(StoredBytes(kKey, "T"), WideBytes(std::string("a;b\0", 4)));
    EXPECT_EQ(StoredBytes(kKey, "H"), (Bytes{1, 2}));
}

TEST_F(RegistryTextRead, TakesBlanksAroundThePartsOfALine) {
    LoadValues("  \"A\" =\t dword:1  \n\"H\" = hex: 01 , 02 \n");
    EXPECT_EQ(StoredBytes(kKey, "A")[0], 1);
    EXPECT_EQ(StoredBytes(kKey, "H"), (Bytes{1, 2}));
}

TEST_F(RegistryTextRead, TakesTextWithEscapes) {
    LoadValues(R"("A"="C:\\x \"q\"")"
               "\n"
               R"("\\\"n"="")");
    EXPECT_EQ(StoredBytes(kKey, "A"), WideBytes(std::string("C:\\x \"q\"\0", 9)));
    EXPECT_EQ(StoredType(kKey, "A"), 1U);
    EXPECT_EQ(StoredBytes(kKey, "\\\"n"), (Bytes{0, 0}));
}

TEST_F(RegistryTextRead, TakesNumbersOfOneToEightDigits) {
    LoadValues("\"A\"=dword:f\n\"B\"=DWORD:FFFFFFFF\n");
    EXPECT_EQ(StoredBytes(kKey, "A"), (Bytes{15, 0, 0, 0}));
    EXPECT_EQ(StoredBytes(kKey, "B"), Bytes(4, 0xFF));
    EXPECT_EQ(StoredType(kKey, "B"), 4U);
}

TEST_F(RegistryTextRead, TakesBytesOfEveryType) {
    LoadValues("\"A\"=hex:\n\"B\"=hex:0,fF\n\"C\"=hex(b):01\n\"D\"=hex(FFFFFFFF):02\n"
               "\"E\"=HEX(0):\n");
    EXPECT_EQ(StoredType(kKey, "A"), 3U);
    EXPECT_EQ(StoredBytes(kKey, "A"), Bytes());
    EXPECT_EQ(StoredBytes(kKey, "B"), (Bytes{0, 0xFF}));
    EXPECT_EQ(StoredType(kKey, "C"), 11U);
    EXPECT_EQ(StoredType(kKey, "D"), 0xFFFFFFFFU);
    EXPECT_EQ(StoredType(kKey, "E"), 0U);
}

TEST_F(RegistryTextRead, ContinuesBytesInTheNextLines) {
    LoadValues("\"A\"=hex:01,\\\n  02,03,\\\r\n\t04\n\"B\"=hex(7):\\\n05\n"
               "\"C\"=hex:06,\\ ; why\n; between\n  07 ; end\n");
    EXPECT_EQ(StoredBytes(kKey, "A"), (Bytes{1, 2, 3, 4}));
    EXPECT_EQ(StoredBytes(kKey, "B"), Bytes{5});
    EXPECT_EQ(StoredBytes(kKey, "C"), (Bytes{6, 7}));
}

TEST_F(RegistryTextRead, KeepsTheBytesOfTextTypesInVersion5) {
    LoadValues("\"CDM\"=hex(1):39,37,31,41,35\n\"B\"=hex(7):61,00\n");
    EXPECT_EQ(StoredBytes(kKey, "CDM"), BytesOf("971A5"));
    EXPECT_EQ(StoredType(kKey, "CDM"), 1U);
    EXPECT_EQ(StoredBytes(kKey, "B"), (Bytes{0x61, 0}));
}

TEST_F(RegistryTextRead, WidensTheBytesOfTextTypesInRegedit4) {
    LoadValues("\"A\"=hex(1):39,00\n\"B\"=hex(2):80,e4\n\"C\"=hex(7):61,00,00\n"
               "\"D\"=hex:61,62\n\"E\"=hex(8):61\n",
               "REGEDIT4");
    EXPECT_EQ(StoredBytes(kKey, "A"), (Bytes{0x39, 0, 0, 0}));
    EXPECT_EQ(StoredBytes(kKey, "B"), (Bytes{0xAC, 0x20, 0xE4, 0}));
    EXPECT_EQ(StoredBytes(kKey, "C"), (Bytes{0x61, 0, 0, 0, 0, 0}));
    EXPECT_EQ(StoredBytes(kKey, "D"), (Bytes{0x61, 0x62}));
    EXPECT_EQ(StoredBytes(kKey, "E"), Bytes{0x61});
}

TEST_F(RegistryTextRead, SetsTheKeysOwnValue) {
    LoadValues("@=\"x\"\n");
    EXPECT_EQ(StoredBytes(kKey, ""), WideBytes(std::string("x\0", 2)));
    LoadValues("\"\"=dword:1\n");
    EXPECT_EQ(StoredType(kKey, ""), 4U);
}

TEST_F(RegistryTextRead, TakesTheLastOfEqualNames) {
    LoadValues("\"A\"=dword:1\n\"a\"=dword:2\n[HKEY_LOCAL_MACHINE\\k\\]\n\"A\"=dword:3\n");
    EXPECT_EQ(StoredBytes(kKey, "A")[0], 3);
}

TEST_F(RegistryTextRead, RemovesValues) {
    LoadValues("\"A\"=dword:1\n\"B\"=dword:2\n@=dword:3\n\"a\"=-\n@=- ; gone\n\"Z\"=-\n");
    EXPECT_EQ(QxmixRegistryGetValue(kKey, "A", nullptr, nullptr, nullptr), 2);
    EXPECT_EQ(QxmixRegistryGetValue(kKey, "", nullptr, nullptr, nullptr), 2);
    EXPECT_EQ(StoredBytes(kKey, "B")[0], 2);
}

TEST_F(RegistryTextRead, RemovesKeysWithEverythingBelow) {
    LoadValues("[HKEY_LOCAL_MACHINE\\K\\Sub]\n[HKEY_LOCAL_MACHINE\\L]\n[-HKEY_LOCAL_MACHINE\\k]\n"
               "[-HKEY_LOCAL_MACHINE\\NotThere]\n");
    EXPECT_EQ(QxmixRegistryKeyExists(kKey), 0);
    EXPECT_EQ(QxmixRegistryKeyExists("HKEY_LOCAL_MACHINE\\K\\Sub"), 0);
    EXPECT_EQ(QxmixRegistryKeyExists("HKEY_LOCAL_MACHINE\\L"), 1);
}

TEST_F(RegistryTextRead, MakesARemovedKeyAnew) {
    LoadValues("\"A\"=dword:1\n[-HKEY_LOCAL_MACHINE\\K]\n[HKEY_LOCAL_MACHINE\\K]\n\"B\"=dword:2\n");
    EXPECT_EQ(QxmixRegistryGetValue(kKey, "A", nullptr, nullptr, nullptr), 2);
    EXPECT_EQ(StoredBytes(kKey, "B")[0], 2);
}

TEST_F(RegistryTextRead, TakesKeysOfBothRootsInAnyCase) {
    LoadValues("[hkey_classes_root\\WOSA/XFS_ROOT\\S]\n\"A\"=dword:1\n[HKEY_LOCAL_MACHINE]\n"
               "\"B\"=dword:2\n");
    EXPECT_EQ(StoredBytes("HKEY_CLASSES_ROOT\\WOSA/XFS_ROOT\\S", "A")[0], 1);
    EXPECT_EQ(StoredBytes("HKEY_LOCAL_MACHINE", "B")[0], 2);
}

TEST_F(RegistryTextRead, TakesTheLastBracketAsTheEndOfAKey) {
    LoadValues("[HKEY_LOCAL_MACHINE\\a]b[c] ; comment\n\"A\"=dword:1\n");
    EXPECT_EQ(StoredBytes("HKEY_LOCAL_MACHINE\\a]b[c", "A")[0], 1);
}

TEST_F(RegistryTextRead, TakesNamesOf255Characters) {
    const std::string longest(255, 'n');
    LoadValues("[HKEY_LOCAL_MACHINE\\" + longest + "]\n\"" + longest + "\"=dword:1\n");
    EXPECT_EQ(StoredBytes(("HKEY_LOCAL_MACHINE\\" + longest).c_str(), longest.c_str())[0], 1);
}

TEST_F(RegistryTextRead, ClearsTheErrorOnSuccess) {
    QxmixTextError error;
    EXPECT_EQ(Load("nonsense", &error), kQxmixErrorInvalidData);
    EXPECT_EQ(Load("REGEDIT4", &error), 0);
    EXPECT_EQ(error.line, 0U);
    EXPECT_STREQ(error.message, "");
}

}  // namespace
