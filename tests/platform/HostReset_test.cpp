#include "PlatformTest.h"
#include "TraceSink.h"

namespace {

TEST(HostReset, MakesTheStandInAsItWasLoaded) {
    QxmixReset();
    const std::string start = SavedText();
    const HKEY key = OpenErrorCode();
    void* event = QxmixEventCreate();
    QxmixSetTraceListener([](void*, const char*) {}, nullptr);
    QxmixLogCalls(1);
    Set(key, u"CDM", REG_SZ, {1});
    QxmixFailCallsFrom(kQxmixAnyFunction, 1, -99);
    QxmixReset();
    EXPECT_EQ(SavedText(), start);
    EXPECT_EQ(QxmixRegistryOpenKeys(), 0U);
    EXPECT_EQ(QxmixEventIsSet(event), -1);
    EXPECT_EQ(QxmixTraceWanted(), 0);
    EXPECT_EQ(QxmixLoggedCalls(), 0U);
    EXPECT_EQ(QxmixCallCount(kQxmixAnyFunction), 0U);
    EXPECT_EQ(RegCloseKey(key), kQxmixErrorInvalidHandle);
    EXPECT_EQ(QxmixLoggedCalls(), 0U);
    QxmixReset();
}

TEST(HostReset, LeavesMemoryAllocated) {
    void* block = nullptr;
    ASSERT_EQ(WFMAllocateBuffer(8, 0, &block), 0);
    QxmixReset();
    EXPECT_EQ(QxmixMemoryLiveBlocks(), 1U);
    EXPECT_EQ(WFMFreeBuffer(block), kQxmixXfsSuccess);
}

}  // namespace
