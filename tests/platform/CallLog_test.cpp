#include "PlatformTest.h"

namespace {

class CallLog : public PlatformTest {
protected:
    CallLog() { QxmixLogCalls(1); }

    static QxmixCall Last() {
        QxmixCall call = {};
        EXPECT_EQ(QxmixGetLoggedCall(QxmixLoggedCalls() - 1, &call), 1);
        return call;
    }

    static std::string LastText() { return LoggedText(QxmixLoggedCalls() - 1); }
};

TEST_F(CallLog, IsOffUntilAskedFor) {
    QxmixLogCalls(0);
    RegCloseKey(HKEY_LOCAL_MACHINE);
    EXPECT_EQ(QxmixLoggedCalls(), 0U);
    QxmixLogCalls(1);
    RegCloseKey(HKEY_LOCAL_MACHINE);
    EXPECT_EQ(QxmixLoggedCalls(), 1U);
}

TEST_F(CallLog, KeepsCallsInTheirOrder) {
    const HKEY key = OpenErrorCode();
    Set(key, u"CDM", REG_SZ, BytesOf("971A5"));
    RegCloseKey(key);
    ASSERT_EQ(QxmixLoggedCalls(), 3U);
    EXPECT_EQ(
        LoggedText(0),
        "RegOpenKeyExW(\"HKEY_LOCAL_MACHINE\\SOFTWARE\\ATM\\ErrorCode\", access 0xF003F) = 0");
    EXPECT_EQ(LoggedText(1), "RegSetValueExW(\"HKEY_LOCAL_MACHINE\\SOFTWARE\\ATM\\ErrorCode\", "
                             "\"CDM\", type 1, size 5) = 0");
    EXPECT_EQ(LoggedText(2), "RegCloseKey(\"HKEY_LOCAL_MACHINE\\SOFTWARE\\ATM\\ErrorCode\") = 0");
    EXPECT_EQ(LoggedText(3), "(none)");
}

TEST_F(CallLog, KeepsPathsExactlyAsWritten) {
    HKEY key = nullptr;
    Create(HKEY_LOCAL_MACHINE, u"software\\ATM\\DevInfo\\CDM\\", &key);
    EXPECT_STREQ(Last().key, "HKEY_LOCAL_MACHINE\\software\\ATM\\DevInfo\\CDM\\");
    EXPECT_EQ(LastText(), "RegCreateKeyExW(\"HKEY_LOCAL_MACHINE\\software\\ATM\\DevInfo\\CDM\\\", "
                          "access 0xF003F) = 0");
    QueryNamed(key, u"CSTMinimum4Mix6", nullptr, nullptr);
    EXPECT_STREQ(Last().key, "HKEY_LOCAL_MACHINE\\software\\ATM\\DevInfo\\CDM\\");
    EXPECT_STREQ(Last().valueName, "CSTMinimum4Mix6");
}

TEST_F(CallLog, KeepsPathsBelowOpenKeys) {
    const HKEY software = Open(HKEY_LOCAL_MACHINE, u"SOFTWARE");
    const HKEY atm = Open(software, u"ATM");
    for (const PlatformChar* none : {static_cast<const PlatformChar*>(nullptr), u""}) {
        Open(atm, none);
        EXPECT_STREQ(Last().key, "HKEY_LOCAL_MACHINE\\SOFTWARE\\ATM");
    }
}

TEST_F(CallLog, KeepsTheFieldsOfOpening) {
    HKEY key = nullptr;
    RegOpenKeyExW(HKEY_CLASSES_ROOT, u"A/B\\", 3, KEY_READ, &key);
    EXPECT_EQ(Last().function, kQxmixRegOpenKeyExW);
    EXPECT_STREQ(Last().key, "HKEY_CLASSES_ROOT\\A/B\\");
    EXPECT_EQ(Last().access, KEY_READ);
    EXPECT_EQ(Last().options, 3U);
    EXPECT_EQ(Last().result, kQxmixErrorInvalidParameter);
    EXPECT_EQ(Last().forced, 0);
    EXPECT_EQ(LastText(),
              "RegOpenKeyExW(\"HKEY_CLASSES_ROOT\\A/B\\\", access 0x20019, options 3) = 87");
}

TEST_F(CallLog, KeepsTheFieldsOfCreating) {
    HKEY key = nullptr;
    DWORD disposition = 0;
    RegCreateKeyExW(HKEY_LOCAL_MACHINE, u"A", 0, nullptr, 5, KEY_READ, nullptr, &key, &disposition);
    EXPECT_EQ(LastText(),
              "RegCreateKeyExW(\"HKEY_LOCAL_MACHINE\\A\", access 0x20019, options 5) = 87");
}

TEST_F(CallLog, KeepsTheFieldsOfQuerying) {
    ASSERT_EQ(QxmixRegistrySetNumber(kErrorCodeKey, "N", 1), 0);
    const HKEY key = OpenErrorCode();
    std::uint8_t bytes[3] = {};
    DWORD size = 3;
    QueryNamed(key, u"N", bytes, &size);
    EXPECT_EQ(Last().type, 4U);
    EXPECT_EQ(Last().size, 3U);
    EXPECT_EQ(Last().result, kQxmixErrorMoreData);
    QueryNamed(key, u"None", bytes, &size);
    EXPECT_EQ(LastText(), "RegQueryValueExW(\"HKEY_LOCAL_MACHINE\\SOFTWARE\\ATM\\ErrorCode\", "
                          "\"None\", type 0, size 4) = 2");
    QueryNamed(key, u"N", nullptr, &size);
    EXPECT_EQ(Last().size, 0U);
}

TEST_F(CallLog, KeepsCallsOnForeignHandles) {
    RegCloseKey(nullptr);
    EXPECT_EQ(LastText(), "RegCloseKey(\"?\") = 6");
    HKEY key = nullptr;
    RegOpenKeyExW(nullptr, u"A", 0, 1, &key);
    EXPECT_EQ(LastText(), "RegOpenKeyExW(\"?\\A\", access 0x1) = 6");
}

TEST_F(CallLog, KeepsEventsAndMemory) {
    EventModify(nullptr, EVENT_SET);
    EXPECT_EQ(LastText(), "EventModify(operation 3) = 0");
    void* root = nullptr;
    void* linked = nullptr;
    WFMAllocateBuffer(88, 3, &root);
    EXPECT_EQ(LastText(), "WFMAllocateBuffer(size 88, flags 3) = 0");
    EXPECT_EQ(Last().options, 3U);
    EXPECT_STREQ(Last().key, "");
    WFMAllocateMore(16, root, &linked);
    EXPECT_EQ(LastText(), "WFMAllocateMore(size 16) = 0");
}

TEST_F(CallLog, MarksForcedFailures) {
    QxmixFailCall(kQxmixWFMAllocateMore, 1, kQxmixUsualFailure);
    WFMAllocateMore(16, nullptr, nullptr);
    EXPECT_EQ(Last().forced, 1);
    EXPECT_EQ(LastText(), "WFMAllocateMore(size 16) = -42 forced");
}

TEST_F(CallLog, IsEmptiedByTheResetOfCallsAndGoesOn) {
    RegCloseKey(HKEY_LOCAL_MACHINE);
    QxmixResetCalls();
    EXPECT_EQ(QxmixLoggedCalls(), 0U);
    RegCloseKey(HKEY_LOCAL_MACHINE);
    EXPECT_EQ(QxmixLoggedCalls(), 1U);
}

TEST_F(CallLog, KeepsTheFirstHundredThousandCalls) {
    for (int k = 0; k < 100010; ++k) {
        EventModify(nullptr, static_cast<DWORD>(k));
    }
    EXPECT_EQ(QxmixLoggedCalls(), 100000U);
    EXPECT_EQ(Last().options, 99999U);
    EXPECT_EQ(QxmixCallCount(kQxmixEventModify), 100010U);
}

TEST_F(CallLog, GivesNothingBeyondItsEnd) {
    QxmixCall call = {};
    call.size = 77;
    EXPECT_EQ(QxmixGetLoggedCall(0, &call), 0);
    EXPECT_EQ(call.size, 77U);
    char text[4] = "abc";
    EXPECT_EQ(QxmixGetLoggedCallText(0, text, sizeof(text)), 0);
    EXPECT_STREQ(text, "abc");
}

TEST_F(CallLog, CutsTextToTheRoomThereIs) {
    RegCloseKey(HKEY_LOCAL_MACHINE);
    char text[12];
    EXPECT_EQ(QxmixGetLoggedCallText(0, text, sizeof(text)), 1);
    EXPECT_STREQ(text, "RegCloseKey");
    EXPECT_EQ(QxmixGetLoggedCallText(0, text, 1), 1);
    EXPECT_STREQ(text, "");
    EXPECT_EQ(QxmixGetLoggedCallText(0, nullptr, 0), 0);
}

TEST_F(CallLog, CutsNamesBetweenCharacters) {
    std::u16string name(255, u'\u20AC');
    QueryNamed(HKEY_LOCAL_MACHINE, name.c_str(), nullptr, nullptr);
    const std::string kept = Last().valueName;
    EXPECT_EQ(kept.size(), 510U);
    EXPECT_EQ(kept.substr(507), "\xE2\x82\xAC");
}

TEST_F(CallLog, WritesNamesInUtf8) {
    QueryNamed(HKEY_LOCAL_MACHINE, u"a\u00E4\u20AC\U0001F600\xD83D", nullptr, nullptr);
    EXPECT_STREQ(Last().valueName, "a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80\xEF\xBF\xBD");
}

TEST_F(CallLog, WritesTheFirstAndLastCharacterOfEveryLength) {
    QueryNamed(HKEY_LOCAL_MACHINE, u"\u007F\u0080\u07FF\u0800\uFFFF\U00010000\U0010FFFF", nullptr,
               nullptr);
    EXPECT_STREQ(Last().valueName, "\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF"
                                   "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF");
}

TEST_F(CallLog, MarksEveryHalfOfASurrogatePair) {
    for (const PlatformChar half : {u'\xD800', u'\xDBFF', u'\xDC00', u'\xDFFF'}) {
        const PlatformChar name[] = {half, u'x', u'\0'};
        QueryNamed(HKEY_LOCAL_MACHINE, name, nullptr, nullptr);
        EXPECT_STREQ(Last().valueName, "\xEF\xBF\xBDx");
    }
}

TEST_F(CallLog, TakesMissingNames) {
    QueryNamed(HKEY_LOCAL_MACHINE, nullptr, nullptr, nullptr);
    EXPECT_EQ(LastText(), "RegQueryValueExW(\"HKEY_LOCAL_MACHINE\", \"\", type 0, size 0) = 2");
}

}  // namespace
