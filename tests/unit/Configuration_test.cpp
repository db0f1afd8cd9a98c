#include "Configuration.h"
#include "MixPlans.h"

#include "Terminal.h"
#include "TestHost.h"

namespace {

constexpr char kMinimumName[] = "CSTMinimum4Mix6";

std::uint32_t Parsed(const std::u16string& text) {
    std::vector<u16le> characters(text.begin(), text.end());
    characters.push_back(std::uint16_t{0});
    return ParseDecimal(characters.data(), static_cast<unsigned>(characters.size()));
}

struct Text {
    const char16_t* text;
    std::uint32_t expected;
};

TEST(ParseDecimal, ReadsDigitsUpToTheFirstOtherCharacter) {
    const Text texts[] = {
        {u"0", 0},       {u"250", 250},  {u"00250", 250}, {u"12abc", 12}, {u"12 34", 12},
        {u"1.9", 1},     {u"0x10", 0},   {u"abc", 0},     {u"", 0},       {u"1e3", 1},
        {u"7\u0663", 7}, {u"\u0663", 0}, {u"5/", 5},      {u"5:", 5},     {u"\uFF11", 0},
        {u"1\u0130", 1}, {u"\u0131", 0},
    };
    for (const Text& one : texts) {
        EXPECT_EQ(Parsed(one.text), one.expected) << testing::PrintToString(one.text);
    }
}

TEST(ParseDecimal, SkipsLeadingWhiteSpace) {
    for (const char16_t* text : {u" 7", u"\t7", u"\n7", u"\v7", u"\f7", u"\r7", u" \t\r\n 7"}) {
        EXPECT_EQ(Parsed(text), 7U);
    }
    for (const char16_t* text : {u"\u00087", u"\u000E7", u"\u00A07", u"\u20037", u"!7"}) {
        EXPECT_EQ(Parsed(text), 0U);
    }
}

TEST(ParseDecimal, TakesOneSign) {
    EXPECT_EQ(Parsed(u"+7"), 7U);
    EXPECT_EQ(Parsed(u"-7"), 0xFFFFFFF9U);
    EXPECT_EQ(Parsed(u" -7"), 0xFFFFFFF9U);
    for (const char16_t* text : {u"--7", u"+-7", u"-+7", u"++7", u"- 7", u"+ 7", u"-", u"+"}) {
        EXPECT_EQ(Parsed(text), 0U);
    }
}

TEST(ParseDecimal, SaturatesBeyondTheSignedRange) {
    const Text texts[] = {
        {u"2147483646", 0x7FFFFFFE},
        {u"2147483647", 0x7FFFFFFF},
        {u"2147483648", 0x7FFFFFFF},
        {u"4294967295", 0x7FFFFFFF},
        {u"4294967296", 0x7FFFFFFF},
        {u"21474836470", 0x7FFFFFFF},
        {u"99999999999999999999999999", 0x7FFFFFFF},
        {u"-2147483647", 0x80000001},
        {u"-2147483648", 0x80000000},
        {u"-2147483649", 0x80000000},
        {u"-99999999999999999999999999", 0x80000000},
        {u"000000000000000000000000002147483647", 0x7FFFFFFF},
    };
    for (const Text& one : texts) {
        EXPECT_EQ(Parsed(one.text), one.expected) << testing::PrintToString(one.text);
    }
}

TEST(ParseDecimal, ReadsNoFurtherThanItIsTold) {
    const u16le text[] = {std::uint16_t{u' '}, std::uint16_t{u'-'}, std::uint16_t{u'1'},
                          std::uint16_t{u'2'}, std::uint16_t{u'3'}};
    EXPECT_EQ(ParseDecimal(text, 0), 0U);
    EXPECT_EQ(ParseDecimal(text, 1), 0U);
    EXPECT_EQ(ParseDecimal(text, 2), 0U);
    EXPECT_EQ(ParseDecimal(text, 3), 0xFFFFFFFFU);
    EXPECT_EQ(ParseDecimal(text, 5), 0U - 123U);
}

class Configuration : public TerminalTest {
protected:
    static std::uint32_t TraceLevel() { return Module().Inner().ulTraceLevel; }
    static std::uint32_t Minimum() { return Module().Inner().ulCstMinimum4Mix6; }

    static std::uint32_t MinimumOf(const char* text) {
        QxmixRegistrySetText(kMinimumKey, kMinimumName, text);
        return Minimum();
    }
};

TEST_F(Configuration, HasDefaultsOnAFreshTerminal) {
    EXPECT_EQ(TraceLevel(), 1U);
    EXPECT_EQ(Minimum(), 100U);
}

TEST_F(Configuration, ReadsTheTraceLevel) {
    QxmixRegistrySetNumber(kTraceKey, "TraceLevel", 0x89ABCDEF);
    EXPECT_EQ(TraceLevel(), 0x89ABCDEFU);
}

TEST_F(Configuration, TakesTheTraceLevelOfAnyTypeOfFourBytes) {
    for (const std::uint32_t type : {0U, 1U, 3U, 4U, 7U, 0x12345678U}) {
        QxmixRegistrySetValue(kTraceKey, "TraceLevel", type, "\x04\x03\x02\x01", 4);
        EXPECT_EQ(TraceLevel(), 0x01020304U) << type;
    }
}

TEST_F(Configuration, TakesTheBytesThatATraceLevelLacksForZero) {
    QxmixRegistrySetValue(kTraceKey, "TraceLevel", kQxmixRegBinary, "\x04\x03", 2);
    EXPECT_EQ(TraceLevel(), 0x0304U);
    QxmixRegistrySetValue(kTraceKey, "TraceLevel", kQxmixRegBinary, "", 0);
    EXPECT_EQ(TraceLevel(), 0U);
}

TEST_F(Configuration, FallsBackWhenTheTraceLevelDoesNotFit) {
    QxmixRegistrySetValue(kTraceKey, "TraceLevel", kQxmixRegBinary, "\5\0\0\0\0", 5);
    EXPECT_EQ(TraceLevel(), 1U);
}

TEST_F(Configuration, FallsBackWhenOnlyTheKeyOfTheTraceLevelIsThere) {
    QxmixRegistryCreateKey(kTraceKey);
    EXPECT_EQ(TraceLevel(), 1U);
}

TEST_F(Configuration, ConvertsTheTextOfTheMinimum) {
    EXPECT_EQ(MinimumOf("250"), 250U);
    EXPECT_EQ(MinimumOf("abc"), 0U);
    EXPECT_EQ(MinimumOf(""), 0U);
    EXPECT_EQ(MinimumOf("-1"), 0xFFFFFFFFU);
    EXPECT_EQ(MinimumOf(" +12 notes"), 12U);
}

TEST_F(Configuration, ReadsAtMost64CharactersOfTheMinimum) {
    const std::string zeros(61, '0');
    EXPECT_EQ(MinimumOf((zeros + "25").c_str()), 25U);    // 63 and the terminator
    EXPECT_EQ(MinimumOf((zeros + "250").c_str()), 100U);  // 64 and the terminator do not fit
    std::u16string text(64, u'0');
    text[63] = u'7';
    QxmixRegistrySetValue(kMinimumKey, kMinimumName, kQxmixRegSz, text.data(), 128);
    EXPECT_EQ(Minimum(), 7U);  // 64 without a terminator
}

TEST_F(Configuration, ConvertsTheMinimumOfAnyType) {
    QxmixRegistrySetValue(kMinimumKey, kMinimumName, kQxmixRegBinary, "4\0002\0", 4);
    EXPECT_EQ(Minimum(), 42U);
    QxmixRegistrySetNumber(kMinimumKey, kMinimumName, 0x00320034);
    EXPECT_EQ(Minimum(), 42U);
    QxmixRegistrySetValue(kMinimumKey, kMinimumName, kQxmixRegBinary, "4", 1);
    EXPECT_EQ(Minimum(), 4U);
    QxmixRegistrySetValue(kMinimumKey, kMinimumName, kQxmixRegBinary, "", 0);
    EXPECT_EQ(Minimum(), 0U);
}

TEST_F(Configuration, CreatesTheKeyOfTheMinimumButNoValue) {
    Module module;
    EXPECT_EQ(QxmixRegistryKeyExists(kMinimumKey), 1);
    EXPECT_EQ(QxmixRegistryGetValue(kMinimumKey, kMinimumName, nullptr, nullptr, nullptr),
              kQxmixErrorFileNotFound);
    EXPECT_EQ(QxmixRegistryKeyExists(kTraceKey), 0);
}

TEST_F(Configuration, MakesTheseCallsOnAFreshTerminal) {
    CallLog log;
    Module module;
    EXPECT_EQ(CallLog::All(),
              (Lines{"RegOpenKeyExW(\"HKEY_CLASSES_ROOT\\WOSA/XFS_ROOT\\SERVICE_PROVIDERS\\"
                     "CashDispenser\\\", access 0x20019) = 2",
                     "RegCreateKeyExW(\"HKEY_LOCAL_MACHINE\\SOFTWARE\\ATM\\DevInfo\\CDM\\\", "
                     "access 0xF003F) = 0",
                     "RegQueryValueExW(\"HKEY_LOCAL_MACHINE\\SOFTWARE\\ATM\\DevInfo\\CDM\\\", "
                     "\"CSTMinimum4Mix6\", type 0, size 128) = 2",
                     "RegCloseKey(\"HKEY_LOCAL_MACHINE\\SOFTWARE\\ATM\\DevInfo\\CDM\\\") = 0"}));
    EXPECT_EQ(QxmixRegistryOpenKeys(), 0U);
}

TEST_F(Configuration, LeavesTheKeyOfTheTraceLevelOpen) {
    QxmixRegistrySetNumber(kTraceKey, "TraceLevel", 3);
    CallLog log;
    Module module;
    const Lines calls = CallLog::All();
    ASSERT_EQ(calls.size(), 5U);
    EXPECT_EQ(calls[1], "RegQueryValueExW(\"HKEY_CLASSES_ROOT\\WOSA/XFS_ROOT\\SERVICE_PROVIDERS\\"
                        "CashDispenser\\\", \"TraceLevel\", type 4, size 4) = 0");
    EXPECT_EQ(QxmixRegistryOpenKeys(), 1U);
}

class FailingRegistry : public Configuration {
protected:
    FailingRegistry() {
        QxmixRegistrySetNumber(kTraceKey, "TraceLevel", 3);
        QxmixRegistrySetText(kMinimumKey, kMinimumName, "250");
    }
};

struct FailingCall {
    std::uint32_t n;
    std::uint32_t traceLevel;
    std::uint32_t minimum;
    std::size_t calls;
};

TEST_F(FailingRegistry, FallsBackAtEachCall) {
    // Open, query; create, query, close.
    const FailingCall cases[] = {
        {1, 1, 250, 4}, {2, 1, 250, 5}, {3, 3, 100, 3},
        {4, 3, 100, 5}, {5, 3, 250, 5}, {6, 3, 250, 5},
    };
    for (const FailingCall& one : cases) {
        CallLog log;
        QxmixFailCall(kQxmixAnyFunction, one.n, kQxmixUsualFailure);
        Module module;
        EXPECT_EQ(module.Inner().ulTraceLevel, one.traceLevel) << one.n;
        EXPECT_EQ(module.Inner().ulCstMinimum4Mix6, one.minimum) << one.n;
        EXPECT_EQ(CallLog::All().size(), one.calls) << one.n;
        QxmixResetCalls();
    }
}

TEST_F(FailingRegistry, FallsBackWhenEveryCallFailsFromOneOn) {
    const FailingCall cases[] = {
        {1, 1, 100, 2}, {2, 1, 100, 3}, {3, 3, 100, 3}, {4, 3, 100, 5}, {5, 3, 250, 5}};
    // Nothing is left open but what could not be closed, and the key of the trace level.
    const std::uint32_t openKeys[] = {0, 1, 1, 2, 2};
    for (const FailingCall& one : cases) {
        QxmixReset();
        QxmixRegistrySetNumber(kTraceKey, "TraceLevel", 3);
        QxmixRegistrySetText(kMinimumKey, kMinimumName, "250");
        CallLog log;
        QxmixFailCallsFrom(kQxmixAnyFunction, one.n, kQxmixUsualFailure);
        Module module;
        EXPECT_EQ(module.Inner().ulTraceLevel, one.traceLevel) << one.n;
        EXPECT_EQ(module.Inner().ulCstMinimum4Mix6, one.minimum) << one.n;
        EXPECT_EQ(CallLog::All().size(), one.calls) << one.n;
        EXPECT_EQ(QxmixRegistryOpenKeys(), openKeys[one.n - 1]) << one.n;
        QxmixResetCalls();
    }
}

TEST_F(FailingRegistry, WorksOnDefaultsWhenEveryCallFails) {
    QxmixFailCallsFrom(kQxmixAnyFunction, 1, 5);
    Module module;
    EXPECT_EQ(module.Inner().ulTraceLevel, 1U);
    EXPECT_EQ(module.Inner().ulCstMinimum4Mix6, 100U);
    EXPECT_EQ(module.Inner().usLastMixNumber, kMixCount);
    QxmixResetCalls();
}

TEST_F(Configuration, IsReadOnceForTheLifeOfAnObject) {
    Module module;
    QxmixRegistrySetText(kMinimumKey, kMinimumName, "250");
    QxmixRegistrySetNumber(kTraceKey, "TraceLevel", 3);
    WFSCDMMIXTYPE** list = nullptr;
    module.Outer().GetMixTypes(&list);
    EXPECT_EQ(module.Inner().ulCstMinimum4Mix6, 100U);
    EXPECT_EQ(module.Inner().ulTraceLevel, 1U);
}

}  // namespace
