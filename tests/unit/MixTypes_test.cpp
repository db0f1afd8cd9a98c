#include "MixPlans.h"
#include "Terminal.h"
#include "TestHost.h"

#include <cstring>

namespace {

struct MixType {
    unsigned subType;
    const char* name;
};

const MixType kMixTypes[] = {
    {1, "Minimum Notes"},
    {3, "Equal Notes"},
    {2, "Equal Emptying"},
    {2, "Varnholt Equal Emptying"},
    {1, "Varnholt Minimum Notes"},
    {1, "Varnholt Minimum Notes 2"},
    {3, "Varnholt Maximum Number of CashUnits"},
    {2, "Varnholt Equal Emptying 2"},
    {2, "Varnholt Equal Emptying 3"},
    {3, "Varnholt Maximum Notes"},
};
static_assert(sizeof(kMixTypes) / sizeof(kMixTypes[0]) == kMixCount, "a mix has a row here, too");
constexpr std::uint32_t kAllocations = 1 + 2 * kMixCount;
constexpr char kUnwrittenByte = static_cast<char>(kQxmixUnwrittenByte);

/// Whether memory still holds what the XFS manager left in it.
bool IsUnwritten(const void* memory, std::size_t size) {
    return std::string(size, kUnwrittenByte) == std::string(static_cast<const char*>(memory), size);
}

class GetMixTypes : public TerminalTest {
protected:
    std::int32_t Get() { return module_.Inner().GetMixTypes(&list_); }

    void ExpectEntry(unsigned index) {
        ASSERT_NE(list_[index], nullptr);
        ExpectNumbers(index);
        EXPECT_STREQ(list_[index]->lpszName, kMixTypes[index].name);
    }

    void ExpectNumbers(unsigned index) {
        EXPECT_EQ(list_[index]->usMixNumber, index + 1);
        EXPECT_EQ(list_[index]->usMixType, 1);
        EXPECT_EQ(list_[index]->usSubType, kMixTypes[index].subType);
    }

    Module module_;
    WFSCDMMIXTYPE** list_ = nullptr;
};

TEST_F(GetMixTypes, ListsAllMixes) {
    ASSERT_EQ(Get(), 0);
    for (unsigned index = 0; index < kMixCount; ++index) {
        ExpectEntry(index);
    }
    EXPECT_EQ(list_[kMixCount], nullptr);
}

TEST_F(GetMixTypes, LeavesTheTwoBytesBeforeTheNameUnwritten) {
    Get();
    EXPECT_TRUE(IsUnwritten(&list_[0]->usSubType + 1, 2));
}

TEST_F(GetMixTypes, AllocatesListThenEachRecordAndItsName) {
    CallLog log;
    ASSERT_EQ(Get(), 0);
    Lines expected = {"WFMAllocateBuffer(size " + std::to_string((kMixCount + 1) * sizeof(void*)) +
                      ", flags 3) = 0"};
    for (const MixType& mixType : kMixTypes) {
        expected.push_back("WFMAllocateMore(size " + std::to_string(8 + sizeof(void*)) + ") = 0");
        expected.push_back("WFMAllocateMore(size " + std::to_string(std::strlen(mixType.name) + 1) +
                           ") = 0");
    }
    EXPECT_EQ(CallLog::All(), expected);
}

TEST_F(GetMixTypes, IsFreedWithOneCall) {
    Get();
    EXPECT_EQ(QxmixMemoryLiveBlocks(), kAllocations);
    EXPECT_EQ(WFMFreeBuffer(list_), 0);
    EXPECT_EQ(QxmixMemoryLiveBlocks(), 0U);
}

TEST_F(GetMixTypes, StoresNothingWhenTheListCannotBeAllocated) {
    WFSCDMMIXTYPE* own = nullptr;
    list_ = &own;
    QxmixFailCall(kQxmixWFMAllocateBuffer, 1, -4711);
    EXPECT_EQ(Get(), -4711);
    EXPECT_EQ(list_, &own);
    EXPECT_EQ(QxmixMemoryLiveBlocks(), 0U);
}

TEST_F(GetMixTypes, LeavesTheListAsFarAsItGotWhenAnAllocationFails) {
    // Whether later ones would fail too makes no difference: none is tried.
    for (std::uint32_t turn = 0; turn < 2 * (kAllocations - 1); ++turn) {
        const std::uint32_t n = turn / 2 + 1;
        (turn % 2 == 0 ? QxmixFailCall : QxmixFailCallsFrom)(kQxmixWFMAllocateMore, n, -4711);
        EXPECT_EQ(Get(), -4711);
        const unsigned reached = (n - 1) / 2;
        const bool nameFailed = n % 2 == 0;
        for (unsigned index = 0; index < reached; ++index) {
            ExpectEntry(index);
        }
        if (nameFailed) {
            ExpectNumbers(reached);
            EXPECT_TRUE(IsUnwritten(&list_[reached]->lpszName, sizeof(char*)));
        }
        for (unsigned index = reached + (nameFailed ? 1 : 0); index <= kMixCount; ++index) {
            EXPECT_EQ(list_[index], nullptr) << n;
        }
        EXPECT_EQ(QxmixMemoryLiveBlocks(), n);
        WFMFreeBuffer(list_);
        QxmixFailCall(kQxmixWFMAllocateMore, 0, 0);
    }
    EXPECT_EQ(Get(), 0);  // no allocation is left that could fail
}

TEST_F(GetMixTypes, TouchesNoRegistry) {
    CallLog log;
    QxmixFailCall(kQxmixWFMAllocateMore, 3, -4711);
    Get();
    EXPECT_EQ(CallLog::CountOf("Reg"), 0U);
}

TEST_F(GetMixTypes, ListsAsManyAsTheObjectSays) {
    module_.Inner().usNumMixTypes = std::uint16_t{3};
    ASSERT_EQ(Get(), 0);
    ExpectEntry(2);
    EXPECT_EQ(list_[3], nullptr);
    module_.Inner().usNumMixTypes = std::uint16_t{0};
    ASSERT_EQ(Get(), 0);
    EXPECT_EQ(list_[0], nullptr);
}

TEST_F(GetMixTypes, RepeatsTheLastNameBeyondTheLastMix) {
    module_.Inner().usNumMixTypes = std::uint16_t{300};
    ASSERT_EQ(Get(), 0);
    ExpectEntry(kMixCount - 1);
    for (const unsigned index : {kMixCount + 0U, kMixCount + 1U, 299U}) {
        EXPECT_EQ(list_[index]->usMixNumber, index + 1);
        EXPECT_EQ(list_[index]->usMixType, 1);
        EXPECT_EQ(list_[index]->usSubType, 2);
        EXPECT_STREQ(list_[index]->lpszName, kMixTypes[kMixCount - 1].name);
    }
    EXPECT_EQ(list_[300], nullptr);
}

TEST_F(GetMixTypes, MakesANewListEachTime) {
    Get();
    WFSCDMMIXTYPE** const first = list_;
    Get();
    EXPECT_NE(list_, first);
    EXPECT_NE(list_[0]->lpszName, first[0]->lpszName);
}

}  // namespace
