#include "PlatformTest.h"

namespace {

struct WrongText {
    const char* name;
    std::string text;
    std::uint32_t line;
    const char* message;
};

class RegistryTextRefused : public PlatformTest, public testing::WithParamInterface<WrongText> {};

TEST_P(RegistryTextRefused, TellsTheLineAndLeavesTheContent) {
    ASSERT_EQ(QxmixRegistrySetNumber(kErrorCodeKey, "Stays", 1), 0);
    const std::string before = SavedText();
    const HKEY open = OpenErrorCode();
    QxmixTextError error;
    EXPECT_EQ(Load(GetParam().text, &error), kQxmixErrorInvalidData);
    EXPECT_EQ(error.line, GetParam().line);
    EXPECT_STREQ(error.message, GetParam().message);
    EXPECT_EQ(SavedText(), before);
    EXPECT_EQ(Set(open, u"CDM", REG_SZ, {1}), ERROR_SUCCESS);
}

/// A text whose only wrong line is the last of those given, below a key line in line 2.
std::string BelowKey(const std::string& lines) {
    return "Windows Registry Editor Version 5.00\n[HKEY_LOCAL_MACHINE\\K]\n" + lines;
}

constexpr const char* kHeader =
    "the first line is neither REGEDIT4 nor Windows Registry Editor Version 5.00";
constexpr const char* kEncoding = "neither UTF-8 nor UTF-16LE with its mark";
constexpr const char* kRoot =
    "the root of the key is neither HKEY_LOCAL_MACHINE nor HKEY_CLASSES_ROOT";
constexpr const char* kByte = "a byte of one or two hexadecimal digits expected";
constexpr const char* kComma = "',' expected between bytes";
constexpr const char* kHex = "expected hex: or hex(N): with N of one to eight hexadecimal digits";
constexpr const char* kDword = "dword: needs one to eight hexadecimal digits";
constexpr const char* kKind = "expected \"text\", dword:, hex:, hex(N): or - after the '='";
constexpr const char* kBehindValue = "something follows the value";
constexpr const char* kNoNextLine = "the bytes are to go on in a next line, but there is none";

std::string NameOf(const testing::TestParamInfo<WrongText>& test) {
    return test.param.name;
}

INSTANTIATE_TEST_SUITE_P(
    Encoding,
    RegistryTextRefused,
    testing::Values(
        WrongText{"Empty", "", 1, kHeader},
        WrongText{"OtherHeader", "REGEDIT5\n", 1, kHeader},
        WrongText{"HeaderBelowABlankLine", "\nREGEDIT4\n", 1, kHeader},
        WrongText{"SomethingBehindTheHeader", "REGEDIT4 x\n", 1, kHeader},
        WrongText{"BigEndian", "\xFE\xFF", 1, "big-endian UTF-16; only little-endian is read"},
        WrongText{"HalfACharacter", std::string("\xFF\xFE\n\0\n\0x", 7), 3,
                  "half a UTF-16 character at the end"},
        WrongText{"CarriageReturn", "REGEDIT4\r\n;\r;\r\n", 2, "a carriage return within the line"},
        WrongText{"Utf16WithoutMark", std::string("R\0E\0", 4), 1,
                  "a character 0; UTF-16 needs its mark"},
        WrongText{"CharacterZero", BelowKey(std::string("\"A\"=\"\0\"", 7)), 3,
                  "a character 0; UTF-16 needs its mark"},
        WrongText{"LoneContinuation", "REGEDIT4\n;\x80", 2, kEncoding},
        WrongText{"OverlongForm", "REGEDIT4\n\n;\xC0\xAF", 3, kEncoding},
        WrongText{"OverlongForm3", "REGEDIT4\n;\xE0\x80\xAF", 2, kEncoding},
        WrongText{"Surrogate", "REGEDIT4\n;\xED\xA0\x80", 2, kEncoding},
        WrongText{"TooLarge", "REGEDIT4\n;\xF4\x90\x80\x80", 2, kEncoding},
        WrongText{"NoContinuation", "REGEDIT4\n;\xC3(", 2, kEncoding},
        WrongText{"CutCharacter", "REGEDIT4\n;\xE2\x82", 2, kEncoding},
        WrongText{"CharacterCutByALine", "REGEDIT4\n;\xE2\n", 2, kEncoding},
        WrongText{"NoLeadByte", "REGEDIT4\n;\xFF", 2, kEncoding}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Keys,
    RegistryTextRefused,
    testing::Values(WrongText{"NoClosingBracket", BelowKey("[HKEY_LOCAL_MACHINE\\L\n"), 3,
                              "key without closing bracket"},
                    WrongText{"SomethingBehindTheBracket", BelowKey("[HKEY_LOCAL_MACHINE\\L] x\n"),
                              3, "something follows the closing bracket of the key"},
                    WrongText{"OtherRoot", BelowKey("\n[HKEY_CURRENT_USER\\L]\n"), 4, kRoot},
                    WrongText{"OtherRootRemoved", BelowKey("[-HKEY_USERS]\n"), 3, kRoot},
                    WrongText{"ShortRoot", BelowKey("[HKLM\\L]\n"), 3, kRoot},
                    WrongText{"NoRoot", BelowKey("[]\n"), 3, kRoot},
                    WrongText{"DoubledBackslash", BelowKey("[HKEY_LOCAL_MACHINE\\\\L]\n"), 3,
                              "two backslashes after the root of the key"},
                    WrongText{"LongKeyName",
                              BelowKey("[HKEY_LOCAL_MACHINE\\" + std::string(256, 'k') + "]"), 3,
                              "the name of a key has more than 255 characters"}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Names,
    RegistryTextRefused,
    testing::Values(
        WrongText{"ValueWithoutKey", "REGEDIT4\n\n;\n\n\"A\"=dword:1\n", 5,
                  "value without a key line above it"},
        WrongText{"OwnValueWithoutKey", "REGEDIT4\n@=-\n", 2, "value without a key line above it"},
        WrongText{"ValueBelowARemovedKey", BelowKey("[-HKEY_LOCAL_MACHINE\\K]\n\"A\"=-\n"), 4,
                  "value below a key line that removes the key"},
        WrongText{"NeitherKeyNorValue", BelowKey("A=dword:1\n"), 3,
                  "neither a key, a value nor a comment"},
        WrongText{"NameWithoutQuote", BelowKey("\"A=dword:1\n"), 3,
                  "value name without closing quotation mark"},
        WrongText{"NameEndingInAnEscape", BelowKey("\"A\\\"=dword:1\n"), 3,
                  "value name without closing quotation mark"},
        WrongText{"NoEqualSign", BelowKey("\"A\" dword:1\n"), 3,
                  "'=' expected after the name of the value"},
        WrongText{"NothingBehindTheName", BelowKey("@"), 3,
                  "'=' expected after the name of the value"},
        WrongText{"LongValueName", BelowKey("\"" + std::string(256, 'v') + "\"=dword:1"), 3,
                  "the name of a value has more than 255 characters"},
        WrongText{"EscapeInName", BelowKey("\"A\\B\"=dword:1\n"), 3,
                  "in a value name a backslash is written \\\\ and a quotation mark \\\""}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Values,
    RegistryTextRefused,
    testing::Values(
        WrongText{"NoValue", BelowKey("\"A\"=\n"), 3, kKind},
        WrongText{"OtherKind", BelowKey("\"A\"=qword:1\n"), 3, kKind},
        WrongText{"TextWithoutQuote", BelowKey("\"A\"=\"abc\n\"B\"=dword:1\n"), 3,
                  "text without closing quotation mark"},
        WrongText{"TextEndingInAnEscape", BelowKey("\"A\"=\"abc\\"), 3,
                  "in a text a backslash is written \\\\ and a quotation mark \\\""},
        WrongText{"EscapeInText", BelowKey("\"A\"=\"C:\\x\"\n"), 3,
                  "in a text a backslash is written \\\\ and a quotation mark \\\""},
        WrongText{"SomethingBehindText", BelowKey("\"A\"=\"a\" \"b\"\n"), 3, kBehindValue},
        WrongText{"SomethingBehindNumber", BelowKey("\"A\"=dword:12x\n"), 3, kBehindValue},
        WrongText{"SomethingBehindRemoval", BelowKey("\"A\"=-1\n"), 3, kBehindValue},
        WrongText{"NumberWithoutDigits", BelowKey("\"A\"=dword:\n"), 3, kDword},
        WrongText{"NumberOfNineDigits", BelowKey("\"A\"=dword:123456789\n"), 3, kDword},
        WrongText{"NumberWithSign", BelowKey("\"A\"=dword:-1\n"), 3, kDword},
        WrongText{"HexWithoutColon", BelowKey("\"A\"=hex 01\n"), 3, kHex},
        WrongText{"TypeWithoutDigits", BelowKey("\"A\"=hex():01\n"), 3, kHex},
        WrongText{"TypeOfNineDigits", BelowKey("\"A\"=hex(123456789):01\n"), 3, kHex},
        WrongText{"TypeWithoutBracket", BelowKey("\"A\"=hex(2:01\n"), 3, kHex},
        WrongText{"ByteOfThreeDigits", BelowKey("\"A\"=hex:001\n"), 3, kByte},
        WrongText{"NoHexDigit", BelowKey("\"A\"=hex:0g\n"), 3, kComma},
        WrongText{"NoByteBehindComma", BelowKey("\"A\"=hex:01,\n"), 3, kByte},
        WrongText{"TwoCommas", BelowKey("\"A\"=hex:01,,02\n"), 3, kByte},
        WrongText{"NoComma", BelowKey("\"A\"=hex:01 02\n"), 3, kComma},
        WrongText{"BackslashWithoutComma", BelowKey("\"A\"=hex:01\\\n02\n"), 3, kComma},
        WrongText{"WrongByteInAContinuedLine", BelowKey("\"A\"=hex:01,\\\n02,\\\n;\n  0x,03\n"), 6,
                  kComma},
        WrongText{"BlankContinuedLine", BelowKey("\"A\"=hex:01,\\\n\n02\n"), 4, kByte},
        WrongText{"ContinuedAtTheEnd", BelowKey("\"A\"=hex:01,\\\n"), 3, kNoNextLine},
        WrongText{"ContinuedIntoComments", BelowKey("\"A\"=hex:01,\\\n;\n;"), 5, kNoNextLine},
        WrongText{"TextBehindContinuation", BelowKey("\"A\"=hex:01,\\02\n"), 3,
                  "text after the backslash that continues the bytes"}),
    NameOf);

TEST_F(PlatformTest, LoadsNothingWithoutAnErrorToFill) {
    EXPECT_EQ(Load("nonsense"), kQxmixErrorInvalidData);
    EXPECT_EQ(QxmixRegistryLoadText(nullptr, 0, nullptr), kQxmixErrorInvalidData);
    EXPECT_EQ(QxmixRegistryKeyExists(kErrorCodeKey), 1);
}

}  // namespace
