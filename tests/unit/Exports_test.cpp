#include "Allocator.h"
#include "MixPlans.h"
#include "Slots.h"
#include "Terminal.h"
#include "TestHost.h"

namespace {

using Addresses = std::vector<const void*>;

Addresses AddressesOf(const std::vector<IMixAlgorithm*>& objects) {
    return {objects.begin(), objects.end()};
}

const IMixAlgorithm* InnerOf(const IMixAlgorithm* outer) {
    return static_cast<const MixAlgorithmProxy*>(outer)->inner;
}

class Life : public TerminalTest {
protected:
    ~Life() override { EXPECT_EQ(QxmixMemoryLiveBlocks(), 0U); }
};

TEST_F(Life, CreatesAnOuterObjectThatHoldsAnInnerOne) {
    TestHost host;
    const IMixAlgorithm* const outer = host.Create();
    EXPECT_EQ(AddressesOf(host.created), (Addresses{outer, InnerOf(outer)}));
}

TEST_F(Life, AllocatesTheTwoObjectsAndNothingElse) {
    TestHost host;
    Allocator allocator;
    host.Create();
    EXPECT_EQ(allocator.asked,
              (std::vector<std::size_t>{sizeof(MixAlgorithmProxy), sizeof(CMixAlgorithm)}));
}

TEST_F(Life, CreatesAnIndependentPairEachTime) {
    TestHost host;
    const IMixAlgorithm* const first = host.Create();
    const IMixAlgorithm* const second = host.Create();
    EXPECT_NE(first, second);
    EXPECT_EQ(AddressesOf(host.created),
              (Addresses{first, InnerOf(first), second, InnerOf(second)}));
    EXPECT_NE(InnerOf(first), InnerOf(second));
}

TEST_F(Life, DeletesOnlyTheOuterObject) {
    TestHost host;
    const IMixAlgorithm* const outer = host.Create();
    Allocator allocator;
    host.Delete();
    EXPECT_EQ(allocator.freed, (Addresses{outer}));
}

TEST_F(Life, DeletesOnlyTheLastOfTwoPairs) {
    TestHost host;
    host.Create();
    const IMixAlgorithm* const second = host.Create();
    Allocator allocator;
    host.Delete();
    DeleteMixAlgorithm();
    EXPECT_EQ(allocator.freed, (Addresses{second}));
}

TEST_F(Life, KeepsAnEarlierPairWorking) {
    TestHost host;
    IMixAlgorithm* const first = host.Create();
    host.Create();
    host.Delete();
    WFSCDMMIXTYPE** list = nullptr;
    static_cast<MixAlgorithmProxy*>(first)->hMixTypesEvent = nullptr;
    EXPECT_EQ(first->GetMixTypes(&list), 0);
    EXPECT_EQ(WFMFreeBuffer(list), 0);
}

TEST_F(Life, DeletesNothingWithoutAnInstance) {
    Allocator allocator;
    DeleteMixAlgorithm();
    TestHost host;
    host.Create();
    host.Delete();
    const std::size_t freed = allocator.freed.size();
    DeleteMixAlgorithm();
    DeleteMixAlgorithm();
    EXPECT_EQ(allocator.freed.size(), freed);
}

TEST_F(Life, CreatesAgainAfterADeletion) {
    TestHost host;
    host.Create();
    host.Delete();
    EXPECT_NE(host.Create(), nullptr);
}

void* RememberFlags(IMixAlgorithm* object, std::uint32_t flags) {
    static_cast<MixAlgorithmProxy*>(object)->acHost12[0] = static_cast<unsigned char>(flags);
    return object;
}

TEST_F(Life, DeletesThroughTheFirstSlotWithTheFlagToFree) {
    TestHost host;
    auto* const outer = static_cast<MixAlgorithmProxy*>(host.Create());
    const Slots* const own = SlotsOf(outer);
    Slots replaced = *own;
    replaced.destroy = RememberFlags;
    SetSlots(outer, &replaced);
    DeleteMixAlgorithm();
    EXPECT_EQ(outer->acHost12[0], 1);
    SetSlots(outer, own);
    host.Forget(outer);
    outer->Destroy(1);
}

TEST_F(Life, GivesNullWithoutMemoryForTheOuterObject) {
    TestHost host;
    Allocator allocator;
    allocator.FailCall(1);
    EXPECT_EQ(host.Create(), nullptr);
    EXPECT_EQ(allocator.asked.size(), 1U);
    EXPECT_TRUE(host.created.empty());
}

TEST_F(Life, ForgetsTheEarlierPairWhenTheNextOuterObjectHasNoMemory) {
    TestHost host;
    host.Create();
    Allocator allocator;
    allocator.FailCall(1);
    host.Create();
    DeleteMixAlgorithm();
    EXPECT_TRUE(allocator.freed.empty());
}

TEST_F(Life, GivesAnOuterObjectWithoutMemoryForTheInnerOne) {
    TestHost host;
    Allocator allocator;
    allocator.FailCall(2);
    IMixAlgorithm* const outer = host.Create();
    ASSERT_NE(outer, nullptr);
    EXPECT_EQ(InnerOf(outer), nullptr);
    EXPECT_EQ(static_cast<MixAlgorithmProxy*>(outer)->usMaxCashUnits, 6);
    EXPECT_EQ(AddressesOf(host.created), (Addresses{outer}));
    EXPECT_EQ(QxmixCallCount(kQxmixAnyFunction), 0U);
    host.Delete();
    EXPECT_EQ(allocator.freed, (Addresses{outer}));
}

TEST_F(Life, ShowsTheOuterObjectBeforeItsFieldsAreWritten) {
    TestHost host;
    Allocator allocator;
    const Slots* slots = nullptr;
    host.onCreated = [&](const IMixAlgorithm* object) {
        if (host.created.size() == 1) {
            const auto* const outer = static_cast<const MixAlgorithmProxy*>(object);
            slots = SlotsOf(object);
            EXPECT_EQ(outer->self, outer);
            EXPECT_TRUE(IsUnwritten(&outer->inner, sizeof(*outer) - 2 * sizeof(void*)));
            EXPECT_EQ(allocator.asked.size(), 1U) << "the inner object comes afterwards";
        }
    };
    EXPECT_EQ(SlotsOf(host.Create()), slots);
}

TEST_F(Life, ShowsTheInnerObjectBeforeItsFieldsAreWritten) {
    TestHost host;
    Allocator allocator;
    const Slots* slots = nullptr;
    host.onCreated = [&](const IMixAlgorithm* object) {
        if (host.created.size() == 2) {
            const auto* const inner = static_cast<const CMixAlgorithm*>(object);
            slots = SlotsOf(object);
            EXPECT_EQ(inner->self, inner);
            EXPECT_TRUE(IsUnwritten(&inner->ulTraceLevel, sizeof(*inner) - 2 * sizeof(void*)));
            EXPECT_EQ(QxmixCallCount(kQxmixAnyFunction), 0U) << "the registry is read afterwards";
            const auto* const outer = static_cast<const MixAlgorithmProxy*>(host.created[0]);
            EXPECT_TRUE(IsUnwritten(&outer->inner, sizeof(void*)));
            EXPECT_TRUE(IsUnwritten(&outer->usMaxCashUnits, 2));
        }
    };
    host.Create();
    EXPECT_EQ(SlotsOf(host.created[1]), slots);
}

TEST_F(Life, WritesTheFieldsOfTheOuterObjectAndNoOtherByte) {
    Allocator allocator;
    Module module;
    const MixAlgorithmProxy& outer = module.Proxy();
    EXPECT_EQ(outer.self, &outer);
    EXPECT_EQ(outer.inner, &module.Inner());
    EXPECT_EQ(outer.usMaxCashUnits, 6);
    EXPECT_TRUE(IsUnwritten(outer.acHost12, sizeof(outer.acHost12)));
    EXPECT_TRUE(IsUnwritten(&outer.hMixTypesEvent, sizeof(outer.hMixTypesEvent)));
    EXPECT_TRUE(IsUnwritten(outer.acHost104, sizeof(outer.acHost104)));
    EXPECT_TRUE(IsUnwritten(outer.acHost114, sizeof(outer.acHost114)));
}

TEST_F(Life, WritesTheFieldsOfTheInnerObjectAndNoOtherByte) {
    Allocator allocator;
    Module module;
    const CMixAlgorithm& inner = module.Inner();
    EXPECT_EQ(inner.self, &inner);
    EXPECT_EQ(inner.ulTraceLevel, 1U);
    EXPECT_EQ(inner.usNumMixTypes, kMixCount);
    EXPECT_EQ(inner.usFirstMixNumber, 1);
    EXPECT_EQ(inner.usLastMixNumber, kMixCount);
    EXPECT_EQ(inner.ulCstMinimum4Mix6, 100U);
    EXPECT_TRUE(IsUnwritten(inner.acHost, sizeof(inner.acHost)));
}

}  // namespace
