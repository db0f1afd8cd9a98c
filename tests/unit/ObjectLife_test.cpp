#include "Allocator.h"
#include "Slots.h"
#include "Terminal.h"
#include "TestHost.h"

namespace {

using Addresses = std::vector<const void*>;

/// Which of the two objects of a pair is destroyed.
class Destruction : public TerminalTest, public testing::WithParamInterface<unsigned> {
protected:
    Destruction() {
        const Allocator fillsNewMemory;
        host_.Create();
        host_.Delete();
        host_.Create();
        object_ = host_.created[2 + GetParam()];
    }

    const void* Destroy(std::uint32_t flags) { return SlotsOf(object_)->destroy(object_, flags); }

    TestHost host_;
    IMixAlgorithm* object_ = nullptr;
};

std::string NameOf(const testing::TestParamInfo<unsigned>& test) {
    return test.param == 0 ? "OfOuter" : "OfInner";
}

INSTANTIATE_TEST_SUITE_P(Object, Destruction, testing::Values(0, 1), NameOf);

TEST_P(Destruction, FreesOnlyItsOwnStorageWithBit0) {
    for (const std::uint32_t flags : {1U, 3U, 0xFFFFFFFFU}) {
        TestHost host;
        host.Create();
        IMixAlgorithm* const object = host.created[GetParam()];
        const Slots* const slots = SlotsOf(object);
        Allocator allocator;
        const void* const returned = slots->destroy(object, flags);
        EXPECT_EQ(returned, object);
        EXPECT_EQ(allocator.freed, (Addresses{object}));
        host.Forget(object);
        if (GetParam() == 0) {
            // The export still knows this one: another pair takes its place.
            host.Create();
        }
    }
}

TEST_P(Destruction, KeepsTheStorageWithoutBit0) {
    Allocator allocator;
    for (const std::uint32_t flags : {0U, 2U, 0xFFFFFFFEU}) {
        EXPECT_EQ(Destroy(flags), object_);
    }
    EXPECT_TRUE(allocator.freed.empty());
}

TEST_P(Destruction, LeavesTheSlotsOfTheBareInterface) {
    const Slots* const own = SlotsOf(object_);
    Destroy(0);
    const Slots* const bare = SlotsOf(object_);
    EXPECT_NE(bare, own);
    EXPECT_EQ(std::memcmp(&bare->getMixTypes, &bare->mixCalculate, sizeof(void*)), 0)
        << "both are the one function that reports a pure call";
    EXPECT_NE(bare->destroy, own->destroy);
}

TEST_P(Destruction, LeavesEveryFieldAsItWas) {
    unsigned char before[sizeof(CMixAlgorithm)];
    const std::size_t size =
        (GetParam() == 0 ? sizeof(MixAlgorithmProxy) : sizeof(CMixAlgorithm)) - sizeof(void*);
    const unsigned char* const fields =
        reinterpret_cast<const unsigned char*>(object_) + sizeof(void*);
    std::memcpy(before, fields, size);
    Destroy(0);
    EXPECT_EQ(std::memcmp(before, fields, size), 0);
}

TEST_P(Destruction, KeepsTheStorageThroughTheBareInterfaceToo) {
    Destroy(0);
    Allocator allocator;
    EXPECT_EQ(Destroy(2), object_);
    EXPECT_TRUE(allocator.freed.empty());
}

TEST(BareInterface, IsTheSameForBothObjects) {
    TestHost host;
    host.Create();
    for (IMixAlgorithm* object : host.created) {
        SlotsOf(object)->destroy(object, 0);
    }
    EXPECT_EQ(SlotsOf(host.created[0]), SlotsOf(host.created[1]));
}

TEST(BareInterface, FreesWithBit0) {
    TestHost host;
    host.Create();
    IMixAlgorithm* const inner = host.created[1];
    SlotsOf(inner)->destroy(inner, 0);
    Allocator allocator;
    SlotsOf(inner)->destroy(inner, 1);
    EXPECT_EQ(allocator.freed, (Addresses{inner}));
    host.Forget(inner);
}

TEST(BareInterfaceDeathTest, EndsInThePureCallErrorForMixTypes) {
    TestHost host;
    IMixAlgorithm* const outer = host.Create();
    SlotsOf(outer)->destroy(outer, 0);
    EXPECT_DEATH(SlotsOf(outer)->getMixTypes(outer, nullptr), "pure virtual method called");
}

TEST(BareInterfaceDeathTest, EndsInThePureCallErrorForCalculations) {
    TestHost host;
    host.Create();
    IMixAlgorithm* const inner = host.created[1];
    SlotsOf(inner)->destroy(inner, 0);
    EXPECT_DEATH(SlotsOf(inner)->mixCalculate(inner, nullptr, nullptr),
                 "pure virtual method called");
}

}  // namespace
