#include "PlatformTest.h"

namespace {

class Events : public PlatformTest {};

constexpr DWORD kPulse = 1;
constexpr DWORD kReset = 2;

TEST_F(Events, AreNotSetAtFirst) {
    const void* event = QxmixEventCreate();
    ASSERT_NE(event, nullptr);
    EXPECT_EQ(QxmixEventIsSet(event), 0);
    EXPECT_EQ(QxmixEventSignals(event), 0U);
}

TEST_F(Events, StaySetUntilReset) {
    void* event = QxmixEventCreate();
    EXPECT_EQ(EventModify(event, EVENT_SET), 1);
    EXPECT_EQ(QxmixEventIsSet(event), 1);
    EXPECT_EQ(QxmixEventIsSet(event), 1);
    EXPECT_EQ(EventModify(event, kReset), 1);
    EXPECT_EQ(QxmixEventIsSet(event), 0);
}

TEST_F(Events, AreNotSetAfterAPulse) {
    void* event = QxmixEventCreate();
    EXPECT_EQ(EventModify(event, kPulse), 1);
    EXPECT_EQ(QxmixEventIsSet(event), 0);
    EXPECT_EQ(EventModify(event, EVENT_SET), 1);
    EXPECT_EQ(EventModify(event, kPulse), 1);
    EXPECT_EQ(QxmixEventIsSet(event), 0);
}

TEST_F(Events, CountSettingAndPulsing) {
    void* event = QxmixEventCreate();
    for (const DWORD operation : {EVENT_SET, EVENT_SET, kPulse, kReset}) {
        EventModify(event, operation);
    }
    EXPECT_EQ(QxmixEventSignals(event), 3U);
}

TEST_F(Events, AreResetByTheHost) {
    void* event = QxmixEventCreate();
    EventModify(event, EVENT_SET);
    EXPECT_EQ(QxmixEventReset(event), 1);
    EXPECT_EQ(QxmixEventIsSet(event), 0);
    EXPECT_EQ(QxmixEventSignals(event), 1U);
}

TEST_F(Events, AreApartFromEachOther) {
    void* first = QxmixEventCreate();
    void* second = QxmixEventCreate();
    EXPECT_NE(first, second);
    EventModify(first, EVENT_SET);
    EXPECT_EQ(QxmixEventIsSet(second), 0);
}

TEST_F(Events, RefuseOtherOperations) {
    void* event = QxmixEventCreate();
    EventModify(event, EVENT_SET);
    for (const DWORD operation : {0U, 4U, 0xFFFFFFFFU}) {
        EXPECT_EQ(EventModify(event, operation), 0) << operation;
    }
    EXPECT_EQ(QxmixEventIsSet(event), 1);
    EXPECT_EQ(QxmixEventSignals(event), 1U);
}

TEST_F(Events, RefuseForeignHandles) {
    int local = 0x5A5A5A5A;
    for (void* event : {static_cast<void*>(nullptr), static_cast<void*>(&local),
                        reinterpret_cast<void*>(~std::uintptr_t{0})}) {
        EXPECT_EQ(EventModify(event, EVENT_SET), 0);
        EXPECT_EQ(QxmixEventIsSet(event), -1);
        EXPECT_EQ(QxmixEventSignals(event), 0U);
        EXPECT_EQ(QxmixEventReset(event), 0);
        EXPECT_EQ(QxmixEventDestroy(event), 0);
    }
    EXPECT_EQ(local, 0x5A5A5A5A);
}

TEST_F(Events, AreUnknownOnceDestroyed) {
    void* event = QxmixEventCreate();
    EXPECT_EQ(QxmixEventDestroy(event), 1);
    EXPECT_EQ(QxmixEventDestroy(event), 0);
    EXPECT_EQ(EventModify(event, EVENT_SET), 0);
    EXPECT_NE(QxmixEventCreate(), event);
}

TEST_F(Events, AreNoKeysAndKeysAreNoEvents) {
    void* event = QxmixEventCreate();
    EXPECT_EQ(RegCloseKey(static_cast<HKEY>(event)), kQxmixErrorInvalidHandle);
    EXPECT_EQ(EventModify(OpenErrorCode(), EVENT_SET), 0);
}

}  // namespace
