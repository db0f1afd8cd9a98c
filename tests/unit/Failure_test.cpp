#include "Failure.h"

#include "CMixAlgorithm.h"
#include "Terminal.h"

namespace {

using RegWriteError = TerminalTest;

const Lines kCalls = {
    "RegOpenKeyExW(\"HKEY_LOCAL_MACHINE\\SOFTWARE\\ATM\\ErrorCode\", access 0xF003F) = 0",
    "RegSetValueExW(\"HKEY_LOCAL_MACHINE\\SOFTWARE\\ATM\\ErrorCode\", \"CDM\", type 1, size 5) = 0",
    "RegCloseKey(\"HKEY_LOCAL_MACHINE\\SOFTWARE\\ATM\\ErrorCode\") = 0",
};

TEST_F(RegWriteError, StoresTheBareFiveBytesUnderTheTypeOfText) {
    CMixAlgorithm::RegWriteError("971A2");
    std::uint32_t type = 0;
    char bytes[16];
    std::uint32_t size = sizeof(bytes);
    ASSERT_EQ(QxmixRegistryGetValue(kErrorCodeKey, "CDM", &type, bytes, &size), 0);
    EXPECT_EQ(type, 1U);
    EXPECT_EQ(std::string(bytes, size), "971A2");
}

TEST_F(RegWriteError, MakesTheseCalls) {
    CallLog log;
    CMixAlgorithm::RegWriteError("971A2");
    EXPECT_EQ(CallLog::All(), kCalls);
    EXPECT_EQ(QxmixRegistryOpenKeys(), 0U);
}

TEST_F(RegWriteError, ReplacesTheCodeBefore) {
    CMixAlgorithm::RegWriteError("971A2");
    CMixAlgorithm::RegWriteError("97194");
    EXPECT_EQ(RecordedCode(), "97194");
}

TEST_F(RegWriteError, CountsTheCharactersOfAnyCode) {
    for (const char* code : {"", "X", "971A2971A2"}) {
        CMixAlgorithm::RegWriteError(code);
        EXPECT_EQ(RecordedCode(), code);
    }
}

TEST_F(RegWriteError, LosesTheCodeWithoutTheKey) {
    QxmixRegistryDeleteKey(kErrorCodeKey);
    CallLog log;
    TraceLines lines;
    CMixAlgorithm::RegWriteError("971A2");
    EXPECT_EQ(CallLog::All(), (Lines{"RegOpenKeyExW(\"HKEY_LOCAL_MACHINE\\SOFTWARE\\ATM\\"
                                     "ErrorCode\", access 0xF003F) = 2"}));
    EXPECT_EQ(lines.All(), Lines{});
    EXPECT_EQ(QxmixRegistryKeyExists(kErrorCodeKey), 0);
}

TEST_F(RegWriteError, TracesAndClosesWhenTheValueCannotBeSet) {
    CallLog log;
    QxmixFailCall(kQxmixRegSetValueExW, 1, 5);
    TraceLines lines;
    CMixAlgorithm::RegWriteError("971A2");
    EXPECT_EQ(CallLog::All().size(), 3U);
    EXPECT_EQ(CallLog::All().back(), kCalls.back());
    EXPECT_EQ(lines.All(), (Lines{"CMixAlgorithm::RegWriteError() Error Code is 971A2."}));
    EXPECT_EQ(RecordedCode(), "");
}

TEST_F(RegWriteError, IgnoresAFailureToClose) {
    QxmixFailCall(kQxmixRegCloseKey, 1, 6);
    CMixAlgorithm::RegWriteError("971A2");
    EXPECT_EQ(RecordedCode(), "971A2");
}

struct FailingCall {
    std::uint32_t n;
    bool onward;  ///< every later call fails too
    const char* code;
    std::size_t calls;
    std::uint32_t openKeys;
};

TEST_F(RegWriteError, LeavesTheCodeBeforeWhenItCannotBeReplaced) {
    const FailingCall cases[] = {
        {1, false, "971A5", 1, 0}, {2, false, "971A5", 3, 0}, {3, false, "971A2", 3, 1},
        {1, true, "971A5", 1, 0},  {2, true, "971A5", 3, 1},  {3, true, "971A2", 3, 1},
    };
    for (const FailingCall& one : cases) {
        QxmixReset();
        CMixAlgorithm::RegWriteError("971A5");
        CallLog log;
        (one.onward ? QxmixFailCallsFrom : QxmixFailCall)(kQxmixAnyFunction, one.n,
                                                          kQxmixUsualFailure);
        EXPECT_EQ(Fail(Failure::NotDispensable), -306);
        EXPECT_EQ(CallLog::All().size(), one.calls) << one.n;
        QxmixResetCalls();
        EXPECT_EQ(RecordedCode(), one.code) << one.n;
        EXPECT_EQ(QxmixRegistryOpenKeys(), one.openKeys) << one.n;
    }
}

TEST_F(RegWriteError, TracesBetweenSettingAndClosing) {
    struct Seen {
        std::uint32_t sets;
        std::uint32_t closes;
    } seen = {77, 77};
    QxmixSetTraceListener(
        [](void* context, const char*) {
            *static_cast<Seen*>(context) = {QxmixCallCount(kQxmixRegSetValueExW),
                                            QxmixCallCount(kQxmixRegCloseKey)};
        },
        &seen);
    CMixAlgorithm::RegWriteError("971A2");
    EXPECT_EQ(seen.sets, 1U);
    EXPECT_EQ(seen.closes, 0U);
}

struct Row {
    Failure failure;
    std::int32_t result;
    const char* code;
};

TEST(Fail, PairsResultsWithCodes) {
    const Row rows[] = {
        {Failure::InvalidMixNumber, -304, "971A5"}, {Failure::NotDispensable, -306, "971A2"},
        {Failure::TooManyNotes, -307, "971A3"},     {Failure::TooManyCoins, -307, "971A4"},
        {Failure::TooManyUnits, -315, "97194"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(Fail(row.failure), row.result);
        EXPECT_EQ(RecordedCode(), row.code);
    }
}

TEST(Fail, GivesTheResultEvenWhereNothingCanBeRecorded) {
    QxmixFailCallsFrom(kQxmixAnyFunction, 1, 5);
    EXPECT_EQ(Fail(Failure::TooManyUnits), -315);
    QxmixReset();
}

}  // namespace
