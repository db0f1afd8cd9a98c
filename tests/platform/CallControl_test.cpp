#include "PlatformTest.h"

#include <array>
#include <functional>

namespace {

/// One of the eight functions, called so that it succeeds.
struct Callee {
    QxmixFunction function;
    std::int32_t success;
    std::int32_t usualFailure;
    std::function<std::int32_t()> call;
};

HKEY opened = nullptr;
HKEY errorCode = nullptr;
void* event = nullptr;
void* root = nullptr;
void* block = nullptr;
const std::uint8_t kByte = 1;

const std::array<Callee, 8> kCallees = {{
    {kQxmixRegOpenKeyExW, 0, 14,
     [] { return RegOpenKeyExW(HKEY_LOCAL_MACHINE, u"SOFTWARE", 0, KEY_READ, &opened); }},
    {kQxmixRegCreateKeyExW, 0, 14, [] { return Create(HKEY_LOCAL_MACHINE, u"SOFTWARE", &opened); }},
    {kQxmixRegQueryValueExW, 0, 14, [] { return QueryNamed(errorCode, u"Q", nullptr, nullptr); }},
    {kQxmixRegSetValueExW, 0, 14,
     [] { return RegSetValueExW(errorCode, u"S", 0, REG_SZ, &kByte, 1); }},
    {kQxmixRegCloseKey, 0, 14, [] { return RegCloseKey(HKEY_LOCAL_MACHINE); }},
    {kQxmixEventModify, 1, 0, [] { return EventModify(event, EVENT_SET); }},
    {kQxmixWFMAllocateBuffer, 0, -42, [] { return WFMAllocateBuffer(8, 0, &block); }},
    {kQxmixWFMAllocateMore, 0, -42, [] { return WFMAllocateMore(8, root, &block); }},
}};

void MakeCallsSucceed() {
    QxmixReset();
    opened = nullptr;
    block = nullptr;
    EXPECT_EQ(QxmixRegistrySetNumber(kErrorCodeKey, "Q", 1), 0);
    errorCode = OpenErrorCode();
    event = QxmixEventCreate();
    EXPECT_EQ(WFMAllocateBuffer(8, 0, &root), 0);
    QxmixResetCalls();
}

class CallControl : public PlatformTest {
protected:
    CallControl() { MakeCallsSucceed(); }
};

class EachFunction : public CallControl, public testing::WithParamInterface<Callee> {
protected:
    /// What the next calls give, one after the other.
    static std::vector<std::int32_t> Results(unsigned calls) {
        std::vector<std::int32_t> results;
        for (unsigned k = 0; k < calls; ++k) {
            results.push_back(GetParam().call());
        }
        return results;
    }
};

TEST_P(EachFunction, SucceedsAsLongAsNobodyWantsOtherwise) {
    EXPECT_EQ(Results(3), std::vector<std::int32_t>(3, GetParam().success));
}

TEST_P(EachFunction, IsCountedAloneAndTogether) {
    GetParam().call();
    GetParam().call();
    EXPECT_EQ(QxmixCallCount(GetParam().function), 2U);
    EXPECT_EQ(QxmixCallCount(kQxmixAnyFunction), 2U);
    std::uint32_t sum = 0;
    for (const Callee& callee : kCallees) {
        sum += QxmixCallCount(callee.function);
    }
    EXPECT_EQ(sum, 2U);
}

TEST_P(EachFunction, IsCountedFromTheReset) {
    GetParam().call();
    QxmixResetCalls();
    EXPECT_EQ(QxmixCallCount(GetParam().function), 0U);
    EXPECT_EQ(QxmixCallCount(kQxmixAnyFunction), 0U);
}

TEST_P(EachFunction, FailsInTheCallAskedForAlone) {
    const std::int32_t success = GetParam().success;
    QxmixFailCall(GetParam().function, 2, -99);
    EXPECT_EQ(Results(4), (std::vector<std::int32_t>{success, -99, success, success}));
    EXPECT_EQ(QxmixCallCount(GetParam().function), 4U);
}

TEST_P(EachFunction, FailsFromTheCallAskedForOn) {
    const std::int32_t success = GetParam().success;
    QxmixFailCallsFrom(GetParam().function, 3, -99);
    EXPECT_EQ(Results(5), (std::vector<std::int32_t>{success, success, -99, -99, -99}));
}

TEST_P(EachFunction, CountsTheFailingCallFromNow) {
    GetParam().call();
    QxmixFailCall(GetParam().function, 1, -99);
    EXPECT_EQ(Results(2), (std::vector<std::int32_t>{-99, GetParam().success}));
}

TEST_P(EachFunction, FailsAsUsual) {
    QxmixFailCall(GetParam().function, 1, kQxmixUsualFailure);
    EXPECT_EQ(GetParam().call(), GetParam().usualFailure);
    QxmixFailCall(kQxmixAnyFunction, 1, kQxmixUsualFailure);
    EXPECT_EQ(GetParam().call(), GetParam().usualFailure);
}

TEST_P(EachFunction, FailsAsOneOfAny) {
    QxmixFailCall(kQxmixAnyFunction, 2, -99);
    EXPECT_EQ(Results(3), (std::vector<std::int32_t>{GetParam().success, -99, GetParam().success}));
}

TEST_P(EachFunction, SucceedsAgainWhenTheFailureIsTakenBack) {
    QxmixFailCallsFrom(GetParam().function, 1, -99);
    GetParam().call();
    QxmixFailCall(GetParam().function, 0, -99);
    EXPECT_EQ(GetParam().call(), GetParam().success);
    QxmixFailCallsFrom(GetParam().function, 1, -99);
    QxmixResetCalls();
    EXPECT_EQ(GetParam().call(), GetParam().success);
}

TEST_P(EachFunction, IsNotTouchedByFailuresOfOthers) {
    for (const Callee& other : kCallees) {
        if (other.function != GetParam().function) {
            QxmixFailCallsFrom(other.function, 1, -99);
        }
    }
    EXPECT_EQ(GetParam().call(), GetParam().success);
}

INSTANTIATE_TEST_SUITE_P(Functions,
                         EachFunction,
                         testing::ValuesIn(kCallees),
                         [](const testing::TestParamInfo<Callee>& test) {
                             return std::string(QxmixFunctionName(test.param.function));
                         });

TEST_F(CallControl, LetsFailedCallsDoNothing) {
    QxmixFailCallsFrom(kQxmixAnyFunction, 1, -99);
    for (const Callee& callee : kCallees) {
        EXPECT_EQ(callee.call(), -99);
    }
    EXPECT_EQ(RegCloseKey(errorCode), -99);
    QxmixResetCalls();
    EXPECT_EQ(opened, nullptr);
    EXPECT_EQ(QxmixRegistryGetValue(kErrorCodeKey, "S", nullptr, nullptr, nullptr),
              kQxmixErrorFileNotFound);
    EXPECT_EQ(QxmixEventIsSet(event), 0);
    EXPECT_EQ(block, nullptr);
    EXPECT_EQ(QxmixMemoryLiveBlocks(), 1U);
    EXPECT_EQ(QxmixRegistryOpenKeys(), 1U);
}

TEST_F(CallControl, LeavesOutputsOfFailedCallsAlone) {
    QxmixFailCallsFrom(kQxmixAnyFunction, 1, -99);
    DWORD disposition = 77;
    DWORD type = 77;
    DWORD size = 1;
    std::uint8_t byte = 77;
    RegCreateKeyExW(HKEY_LOCAL_MACHINE, u"SOFTWARE", 0, nullptr, 0, KEY_READ, nullptr, &opened,
                    &disposition);
    RegQueryValueExW(errorCode, u"Q", nullptr, &type, &byte, &size);
    EXPECT_EQ(disposition, 77U);
    EXPECT_EQ(type, 77U);
    EXPECT_EQ(size, 1U);
    EXPECT_EQ(byte, 77);
}

TEST_F(CallControl, CountsAllFunctionsTogetherInTheirOrder) {
    QxmixFailCall(kQxmixAnyFunction, 5, -99);
    std::vector<std::int32_t> results;
    for (const Callee& callee : kCallees) {
        results.push_back(callee.call());
    }
    EXPECT_EQ(results, (std::vector<std::int32_t>{0, 0, 0, 0, -99, 1, 0, 0}));
    EXPECT_EQ(QxmixCallCount(kQxmixAnyFunction), 8U);
}

TEST_F(CallControl, PrefersTheFailureOfTheFunctionItself) {
    QxmixFailCallsFrom(kQxmixAnyFunction, 1, -99);
    QxmixFailCall(kQxmixRegCloseKey, 1, 6);
    EXPECT_EQ(RegCloseKey(HKEY_LOCAL_MACHINE), 6);
    EXPECT_EQ(RegCloseKey(HKEY_LOCAL_MACHINE), -99);
}

TEST_F(CallControl, LetsACallFailWithTheCodeOfSuccess) {
    QxmixFailCall(kQxmixRegOpenKeyExW, 1, 0);
    EXPECT_EQ(RegOpenKeyExW(HKEY_LOCAL_MACHINE, u"SOFTWARE", 0, KEY_READ, &opened), 0);
    EXPECT_EQ(opened, nullptr);
}

TEST_F(CallControl, DoesNotCountWhatTheHostDoes) {
    QxmixRegistrySetNumber(kErrorCodeKey, "N", 1);
    QxmixEventReset(event);
    WFMFreeBuffer(root);
    SavedText();
    EXPECT_EQ(QxmixCallCount(kQxmixAnyFunction), 0U);
}

TEST_F(CallControl, PassesOverFunctionsThatAreNone) {
    for (const int number : {kQxmixAnyFunction + 1, 15}) {  // 15: the last that the type can hold
        const auto none = static_cast<QxmixFunction>(number);
        QxmixFailCall(none, 1, -99);
        QxmixFailCallsFrom(none, 1, -99);
        EXPECT_EQ(QxmixCallCount(none), 0U);
        EXPECT_STREQ(QxmixFunctionName(none), "");
    }
    EXPECT_STREQ(QxmixFunctionName(kQxmixAnyFunction), "");
    EXPECT_EQ(RegCloseKey(HKEY_LOCAL_MACHINE), 0);
}

TEST_F(CallControl, NamesTheFunctions) {
    EXPECT_STREQ(QxmixFunctionName(kQxmixRegOpenKeyExW), "RegOpenKeyExW");
    EXPECT_STREQ(QxmixFunctionName(kQxmixRegCreateKeyExW), "RegCreateKeyExW");
    EXPECT_STREQ(QxmixFunctionName(kQxmixRegQueryValueExW), "RegQueryValueExW");
    EXPECT_STREQ(QxmixFunctionName(kQxmixRegSetValueExW), "RegSetValueExW");
    EXPECT_STREQ(QxmixFunctionName(kQxmixRegCloseKey), "RegCloseKey");
    EXPECT_STREQ(QxmixFunctionName(kQxmixEventModify), "EventModify");
    EXPECT_STREQ(QxmixFunctionName(kQxmixWFMAllocateBuffer), "WFMAllocateBuffer");
    EXPECT_STREQ(QxmixFunctionName(kQxmixWFMAllocateMore), "WFMAllocateMore");
}

}  // namespace
