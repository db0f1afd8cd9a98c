#include "ErrorText.h"
#include "dispenser/StoredValues.h"
#include "module/RegistryImage.h"
#include "registry/RegistryRules.h"

#include <gtest/gtest.h>

namespace qxmix {
namespace {

StoredValue Minimum(const std::string& text) {
    return {kCstMinimum4Mix6, kRegSz, TextBytes(text)};
}

TEST(StoredValues, AreTextInSixteenBitCharactersWithATerminator) {
    EXPECT_EQ(TextBytes("25"), std::string("2\0005\0\0\0", 6));
    EXPECT_EQ(TextBytes("\xc3\xa9\xe2\x82\xac"), std::string("\xe9\x00\xac\x20\x00\x00", 6));
    EXPECT_EQ(TextBytes("\xf0\x9f\x92\xb6"), std::string("\x3d\xd8\xb6\xdc\x00\x00", 6));
}

TEST(StoredValues, ShowTextNumbersAndBytes) {
    EXPECT_EQ(StoredValueText(Minimum("abc")), "REG_SZ \"abc\"");
    EXPECT_EQ(StoredValueText({kTraceLevel, kRegDword, DwordBytes(4294967295U)}),
              "REG_DWORD 4294967295");
    EXPECT_EQ(StoredValueText({kErrorCodeName, kRegSz, "971A3"}), "REG_SZ 39 37 31 41 33");
    EXPECT_EQ(StoredValueText({kTraceLevel, 3, "\x01"}), "REG_BINARY 01");
    EXPECT_EQ(StoredValueText({kTraceLevel, 99, ""}), "type 99");
    EXPECT_EQ(StoredValueText({kTraceLevel, 0, std::string(17, '\0')}),
              "REG_NONE 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 ...");
}

TEST(RegistryImage, StartsWithNothingButTheErrorCodeKey) {
    const std::string registry = RegistryOf({});
    EXPECT_TRUE(HasErrorCodeKey(registry));
    EXPECT_FALSE(FindStored(registry, kTraceLevel));
    EXPECT_FALSE(FindStored(registry, kCstMinimum4Mix6));
    EXPECT_FALSE(FindStored(registry, kErrorCodeName));
}

TEST(RegistryImage, GivesBackWhatWasStored) {
    std::string registry = RegistryOf({Minimum("25")});
    EXPECT_EQ(FindStored(registry, kCstMinimum4Mix6)->bytes, TextBytes("25"));
    registry = WithStored(registry, {kCstMinimum4Mix6, 4, "\x01\x02"});
    EXPECT_EQ(FindStored(registry, kCstMinimum4Mix6)->type, 4U);
    EXPECT_EQ(FindStored(registry, kCstMinimum4Mix6)->bytes, "\x01\x02");
    registry = WithoutStored(registry, kCstMinimum4Mix6);
    EXPECT_FALSE(FindStored(registry, kCstMinimum4Mix6));
    EXPECT_TRUE(HasErrorCodeKey(registry));
}

TEST(RegistryImage, TakesTheErrorCodeAwayAndPutsItBack) {
    LoadRegistry(RegistryOf({{kErrorCodeName, 3, "971A3"}}));
    EXPECT_EQ(ErrorCodeBytes(), "971A3");
    const auto taken = TakeErrorCode();
    EXPECT_EQ(ErrorCodeBytes(), "");
    RestoreErrorCode(taken);
    EXPECT_EQ(FindStored(SaveRegistry(), kErrorCodeName)->type, 3U);
    EXPECT_EQ(ErrorCodeBytes(), "971A3");
    RestoreErrorCode(std::nullopt);
    EXPECT_EQ(ErrorCodeBytes(), "971A3");
}

TEST(RegistryImage, NamesTheFileThatIsNotThere) {
    EXPECT_EQ(ErrorText([] { ReadRegistryFile("/no/such.reg"); }),
              "/no/such.reg: cannot be opened: No such file or directory");
}

Opening Taken(std::uint32_t traceLevel, std::uint32_t minimum) {
    Opening opening;
    opening.traceLevel = traceLevel;
    opening.minimum = minimum;
    return opening;
}

std::vector<Finding> Check(const std::string& registry, std::uint32_t minimum = 100) {
    return CheckRegistry(registry, Taken(1, minimum), "d.reg");
}

TEST(RegistryRules, FindNothingWhereAllIsWell) {
    EXPECT_TRUE(Check(RegistryOf({})).empty());
    EXPECT_TRUE(
        Check(RegistryOf({Minimum("250"), {kTraceLevel, kRegDword, DwordBytes(3)}})).empty());
}

TEST(RegistryRules, TakeEveryDecimalNumber) {
    for (const char* text : {"0", "-5", "+7", "  12", "007"}) {
        EXPECT_TRUE(Check(RegistryOf({Minimum(text)})).empty()) << text;
    }
}

TEST(RegistryRules, RefuseAMinimumThatIsNoDecimalText) {
    for (const char* text : {"", "abc", "25x", "1 2", "-", "0x10", " "}) {
        EXPECT_EQ(Check(RegistryOf({Minimum(text)})).size(), 1U) << text;
    }
    const auto findings = Check(RegistryOf({{kCstMinimum4Mix6, kRegDword, DwordBytes(250)}}), 0);
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_EQ(findings[0].id, "QX301");
    EXPECT_EQ(findings[0].severity, Severity::Error);
    EXPECT_EQ(findings[0].message, "CSTMinimum4Mix6 is not a number: mixes 6 to 9 keep no minimum");
    EXPECT_EQ(findings[0].advice, "qxmix registry d.reg --set CSTMinimum4Mix6=100 --output F");
    EXPECT_EQ(Check(RegistryOf({Minimum("25x")}), 25)[0].message,
              "CSTMinimum4Mix6 is not a number: taken as 25");
}

TEST(RegistryRules, WarnOfATraceLevelThatIsNoDword) {
    const auto findings = Check(RegistryOf({{kTraceLevel, kRegSz, TextBytes("3")}}));
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_EQ(findings[0].id, "QX303");
    EXPECT_EQ(findings[0].severity, Severity::Warning);
    EXPECT_EQ(findings[0].message, "TraceLevel is no dword: taken as 1");
}

TEST(RegistryRules, WarnWhenErrorCodesAreLost) {
    const std::string text = "REGEDIT4\n\n[HKEY_LOCAL_MACHINE\\SOFTWARE]\n";
    const auto findings = Check(text);
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_EQ(findings[0].id, "QX304");
    EXPECT_EQ(findings[0].severity, Severity::Warning);
}

TEST(RegistryRules, NoteACodeThatIsLeft) {
    const auto findings = Check(RegistryOf({{kErrorCodeName, kRegSz, "971A3"}}));
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_EQ(findings[0].id, "QX305");
    EXPECT_EQ(findings[0].severity, Severity::Note);
    EXPECT_EQ(findings[0].message, "CDM still holds 971A3 from an earlier failure");
}

TEST(RegistryRules, FindValuesBesideTheKeyThatIsRead) {
    const std::string head = "REGEDIT4\n\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\ATM\\ErrorCode]\n\n";
    const auto said = [&head](const std::string& rest) {
        std::vector<std::string> messages;
        for (const Finding& finding : CheckRegistry(head + rest, {}, "")) {
            if (finding.id == "QX306") {
                messages.push_back(finding.message);
            }
        }
        return messages;
    };
    const std::string minimum = "\"cstminimum4mix6\"=\"25\"\n\n";
    EXPECT_EQ(said("[HKEY_LOCAL_MACHINE\\SOFTWARE\\WOW6432Node\\ATM\\DevInfo\\CDM]\n" + minimum +
                   "[HKEY_LOCAL_MACHINE\\SOFTWARE\\ATM]\n\"CDM\"=\"971A2\"\n"),
              (std::vector<std::string>{
                  "CSTMinimum4Mix6 lies in HKEY_LOCAL_MACHINE\\SOFTWARE\\WOW6432Node\\ATM\\DevInfo"
                  "\\CDM: only HKEY_LOCAL_MACHINE\\SOFTWARE\\ATM\\DevInfo\\CDM is read",
                  "CDM lies in HKEY_LOCAL_MACHINE\\SOFTWARE\\ATM: only "
                  "HKEY_LOCAL_MACHINE\\SOFTWARE\\ATM\\ErrorCode is read"}));
    EXPECT_TRUE(said("[HKEY_LOCAL_MACHINE\\software\\ATM\\DevInfo\\CDM]\n" + minimum +
                     "[HKEY_LOCAL_MACHINE\\SOFTWARE\\ATM]\n" + minimum)
                    .empty())
        << "read where it lies";
}

TEST(ErrorCodes, AreReadFromBytesAndFromText) {
    EXPECT_EQ(ErrorCodeOf({kErrorCodeName, kRegSz, "971A2"}), "971A2");
    EXPECT_EQ(ErrorCodeOf({kErrorCodeName, kRegSz, TextBytes("971A2")}), "971A2");
}

}  // namespace
}  // namespace qxmix
