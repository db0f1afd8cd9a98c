#include "HostControl.h"
#include "Hosts.h"

#include <gtest/gtest.h>

namespace {

/// Hosts that know nothing but the header, linked to the library.
class LinkedHosts : public testing::Test {
protected:
    LinkedHosts() { QxmixReset(); }
    ~LinkedHosts() override { QxmixReset(); }

    static void ExpectToFindEverything(decltype(RunHostInC) host) {
        void* const event = QxmixEventCreate();
        QxmixMixType** list = nullptr;
        EXPECT_EQ(host(event, &list), 0U);
        EXPECT_EQ(QxmixEventSignals(event), 1U);
        EXPECT_EQ(WFMFreeBuffer(list), 0);
        EXPECT_EQ(QxmixMemoryLiveBlocks(), 0U);
    }
};

TEST_F(LinkedHosts, FindEverythingInC) {
    ExpectToFindEverything(RunHostInC);
}

TEST_F(LinkedHosts, FindEverythingInCpp) {
    ExpectToFindEverything(RunHostInCpp);
}

}  // namespace
