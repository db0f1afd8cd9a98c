#include "PlatformTest.h"

#include <algorithm>
#include <fstream>
#include <sys/resource.h>
#include <unistd.h>

namespace {

/// Lets the process have so many bytes more than it has, as long as it lives.
class MemoryLimit {
public:
    explicit MemoryLimit(rlim_t bytes) {
        getrlimit(RLIMIT_AS, &before_);
        unsigned long pages = 0;
        std::ifstream("/proc/self/statm") >> pages;
        rlimit limit = before_;
        limit.rlim_cur = pages * static_cast<rlim_t>(sysconf(_SC_PAGESIZE)) + bytes;
        setrlimit(RLIMIT_AS, &limit);
    }
    MemoryLimit(const MemoryLimit&) = delete;
    MemoryLimit& operator=(const MemoryLimit&) = delete;
    ~MemoryLimit() { setrlimit(RLIMIT_AS, &before_); }

private:
    rlimit before_ = {};
};

class XfsMemory : public PlatformTest {
protected:
    void* root_ = nullptr;
    void* linked_ = nullptr;
};

bool Holds(const void* block, std::size_t size, std::uint8_t byte) {
    const auto* first = static_cast<const std::uint8_t*>(block);
    return std::all_of(first, first + size, [byte](std::uint8_t b) { return b == byte; });
}

TEST_F(XfsMemory, IsClearedWhenAskedFor) {
    ASSERT_EQ(WFMAllocateBuffer(88, WFS_MEM_SHARE | WFS_MEM_ZEROINIT, &root_), kQxmixXfsSuccess);
    EXPECT_TRUE(Holds(root_, 88, 0));
}

TEST_F(XfsMemory, ShowsWhatStaysUnwritten) {
    ASSERT_EQ(WFMAllocateBuffer(88, WFS_MEM_SHARE, &root_), kQxmixXfsSuccess);
    EXPECT_TRUE(Holds(root_, 88, 0xA5));
}

TEST_F(XfsMemory, ShowsWhatStaysUnwrittenInLinkedBlocksOfAClearedOne) {
    ASSERT_EQ(WFMAllocateBuffer(8, WFS_MEM_ZEROINIT, &root_), kQxmixXfsSuccess);
    ASSERT_EQ(WFMAllocateMore(12, root_, &linked_), kQxmixXfsSuccess);
    EXPECT_TRUE(Holds(linked_, 12, 0xA5));
}

TEST_F(XfsMemory, IsFreedWithEverythingLinkedToIt) {
    ASSERT_EQ(WFMAllocateBuffer(8, 0, &root_), kQxmixXfsSuccess);
    void* other = nullptr;
    ASSERT_EQ(WFMAllocateBuffer(8, 0, &other), kQxmixXfsSuccess);
    for (int k = 0; k < 20; ++k) {
        ASSERT_EQ(WFMAllocateMore(12, root_, &linked_), kQxmixXfsSuccess);
    }
    EXPECT_EQ(QxmixMemoryLiveBlocks(), 22U);
    EXPECT_EQ(QxmixMemoryLiveBuffers(), 2U);
    EXPECT_EQ(WFMFreeBuffer(root_), kQxmixXfsSuccess);
    EXPECT_EQ(QxmixMemoryLiveBlocks(), 1U);
    EXPECT_EQ(WFMFreeBuffer(other), kQxmixXfsSuccess);
    EXPECT_EQ(QxmixMemoryLiveBlocks(), 0U);
    EXPECT_EQ(QxmixMemoryLiveBuffers(), 0U);
}

TEST_F(XfsMemory, IsNotFreedTwice) {
    ASSERT_EQ(WFMAllocateBuffer(8, 0, &root_), kQxmixXfsSuccess);
    ASSERT_EQ(WFMAllocateMore(8, root_, &linked_), kQxmixXfsSuccess);
    ASSERT_EQ(WFMFreeBuffer(root_), kQxmixXfsSuccess);
    EXPECT_EQ(WFMFreeBuffer(root_), kQxmixXfsInvalidBuffer);
    EXPECT_EQ(WFMFreeBuffer(linked_), kQxmixXfsInvalidBuffer);
}

TEST_F(XfsMemory, RefusesForeignAndLinkedBlocks) {
    ASSERT_EQ(WFMAllocateBuffer(8, 0, &root_), kQxmixXfsSuccess);
    ASSERT_EQ(WFMAllocateMore(8, root_, &linked_), kQxmixXfsSuccess);
    int foreign = 0;
    void* block = &foreign;
    for (void* wrong : {static_cast<void*>(&foreign), linked_, static_cast<void*>(&block)}) {
        EXPECT_EQ(WFMFreeBuffer(wrong), kQxmixXfsInvalidBuffer);
        EXPECT_EQ(WFMAllocateMore(8, wrong, &block), kQxmixXfsInvalidBuffer);
    }
    EXPECT_EQ(block, &foreign);
    EXPECT_EQ(QxmixMemoryLiveBlocks(), 2U);
}

TEST_F(XfsMemory, RefusesNullPointers) {
    ASSERT_EQ(WFMAllocateBuffer(8, 0, &root_), kQxmixXfsSuccess);
    EXPECT_EQ(WFMAllocateBuffer(8, 0, nullptr), kQxmixXfsInvalidPointer);
    EXPECT_EQ(WFMAllocateMore(8, nullptr, &linked_), kQxmixXfsInvalidPointer);
    EXPECT_EQ(WFMAllocateMore(8, root_, nullptr), kQxmixXfsInvalidPointer);
    EXPECT_EQ(WFMFreeBuffer(nullptr), kQxmixXfsInvalidPointer);
    EXPECT_EQ(linked_, nullptr);
    EXPECT_EQ(QxmixMemoryLiveBlocks(), 1U);
}

TEST_F(XfsMemory, RefusesWildSizesAndLeavesThePointerAlone) {
    constexpr ULONG kLargest = 16U * 1024 * 1024;
    int stays = 0;
    void* block = &stays;
    EXPECT_EQ(WFMAllocateBuffer(kLargest + 1, 0, &block), kQxmixXfsOutOfMemory);
    EXPECT_EQ(WFMAllocateBuffer(0xFFFFFFFF, 0, &block), kQxmixXfsOutOfMemory);
    EXPECT_EQ(block, &stays);
    ASSERT_EQ(WFMAllocateBuffer(kLargest, 0, &root_), kQxmixXfsSuccess);
    EXPECT_EQ(WFMAllocateMore(0xFFFFFFFF, root_, &block), kQxmixXfsOutOfMemory);
    EXPECT_EQ(block, &stays);
    EXPECT_EQ(QxmixMemoryLiveBlocks(), 1U);
    EXPECT_EQ(WFMFreeBuffer(root_), kQxmixXfsSuccess);
}

// A sanitizer's own memory does not keep to the limit, and its allocator ends the process.
#ifndef QXMIX_SANITIZED
TEST_F(XfsMemory, TellsWhenTheMachineHasNoMoreAndLeavesThePointerAlone) {
    constexpr ULONG kLargest = 16U * 1024 * 1024;
    int stays = 0;
    void* block = &stays;
    HRESULT result = kQxmixXfsSuccess;
    {
        const MemoryLimit limit(4 * kLargest);
        for (unsigned round = 0; round < 100 && result == kQxmixXfsSuccess; ++round) {
            block = &stays;
            result = WFMAllocateBuffer(kLargest, 0, &block);
        }
    }
    EXPECT_EQ(result, kQxmixXfsOutOfMemory);
    EXPECT_EQ(block, &stays);
    const std::uint32_t blocks = QxmixMemoryLiveBlocks();
    ASSERT_EQ(WFMAllocateBuffer(8, 0, &root_), kQxmixXfsSuccess);
    EXPECT_EQ(QxmixMemoryLiveBlocks(), blocks + 1);
}
#endif

TEST_F(XfsMemory, GivesEmptyBlocksAddressesOfTheirOwn) {
    ASSERT_EQ(WFMAllocateBuffer(0, 0, &root_), kQxmixXfsSuccess);
    ASSERT_EQ(WFMAllocateMore(0, root_, &linked_), kQxmixXfsSuccess);
    EXPECT_NE(root_, nullptr);
    EXPECT_NE(root_, linked_);
    EXPECT_EQ(WFMFreeBuffer(root_), kQxmixXfsSuccess);
}

TEST_F(XfsMemory, TellsTheSizesOfLiveBlocks) {
    ASSERT_EQ(WFMAllocateBuffer(44, 0, &root_), kQxmixXfsSuccess);
    ASSERT_EQ(WFMAllocateMore(0, root_, &linked_), kQxmixXfsSuccess);
    std::uint32_t size = 7;
    EXPECT_EQ(QxmixMemoryBlockSize(root_, &size), 1);
    EXPECT_EQ(size, 44U);
    EXPECT_EQ(QxmixMemoryBlockSize(linked_, &size), 1);
    EXPECT_EQ(size, 0U);
    size = 7;
    EXPECT_EQ(QxmixMemoryBlockSize(&size, &size), 0);
    EXPECT_EQ(QxmixMemoryBlockSize(nullptr, &size), 0);
    EXPECT_EQ(size, 7U);
}

TEST_F(XfsMemory, IsFreedAllAtOnce) {
    ASSERT_EQ(WFMAllocateBuffer(8, 0, &root_), kQxmixXfsSuccess);
    ASSERT_EQ(WFMAllocateMore(8, root_, &linked_), kQxmixXfsSuccess);
    ASSERT_EQ(WFMAllocateBuffer(8, 0, &root_), kQxmixXfsSuccess);
    QxmixMemoryFreeAll();
    EXPECT_EQ(QxmixMemoryLiveBlocks(), 0U);
    EXPECT_EQ(WFMFreeBuffer(root_), kQxmixXfsInvalidBuffer);
}

}  // namespace
