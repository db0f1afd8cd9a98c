#include "ImageTest.h"

namespace emulation {
namespace {

struct CatalogueEntry {
    std::uint32_t subType;
    const char* name;
};

constexpr CatalogueEntry kCatalogue[] = {
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
constexpr std::uint32_t kMixes = sizeof(kCatalogue) / sizeof(kCatalogue[0]);

class Catalogue : public ImageTest {
protected:
    std::uint32_t Ask() {
        outer_ = Module().Create();
        Memory().PutWord(outer_ + 100, kEvent);
        TheTerminal().calls.clear();
        place_ = Memory().Allocate(4, Rights::ReadWrite);
        return EmulatedModule::Value(Module().Call(outer_, Slot::GetMixTypes, {place_}));
    }

    std::uint32_t List() { return Memory().WordAt(place_); }
    std::uint32_t Entry(std::uint32_t index) { return Memory().WordAt(List() + 4 * index); }
    std::uint32_t HalfWord(std::uint32_t address) { return Memory().WordAt(address) & 0xFFFFU; }

    void ExpectEntry(std::uint32_t index) {
        const std::uint32_t entry = Entry(index);
        EXPECT_EQ(12U, Memory().SizeOf(entry));
        EXPECT_EQ(index + 1, HalfWord(entry));
        EXPECT_EQ(1U, HalfWord(entry + 2));
        EXPECT_EQ(kCatalogue[index].subType, HalfWord(entry + 4));
        EXPECT_EQ(GuestMemory::Pattern(6), *Memory().At(entry + 6));
        EXPECT_EQ(GuestMemory::Pattern(7), *Memory().At(entry + 7));
        const std::uint32_t name = Memory().WordAt(entry + 8);
        const std::string expected = kCatalogue[index].name;
        ASSERT_EQ(expected.size() + 1, Memory().SizeOf(name));
        EXPECT_STREQ(expected.c_str(), reinterpret_cast<const char*>(Memory().At(name)));
    }

    static constexpr std::uint32_t kEvent = 0xCAFE01;

private:
    std::uint32_t outer_ = 0;
    std::uint32_t place_ = 0;
};

TEST_P(Catalogue, ListsTheTenMixes) {
    ASSERT_EQ(0U, Ask());
    EXPECT_EQ(44U, Memory().SizeOf(List()));
    for (std::uint32_t index = 0; index < kMixes; ++index) {
        ExpectEntry(index);
    }
    EXPECT_EQ(0U, Entry(kMixes));
}

TEST_P(Catalogue, IsTheSameInBlocksAtAnyAddress) {
    for (unsigned shift = 1; shift < 4; ++shift) {
        Reload();
        TheTerminal().blockShift = shift;
        ASSERT_EQ(0U, Ask());
        EXPECT_EQ(shift, List() % 4);
        for (std::uint32_t index = 0; index < kMixes; ++index) {
            EXPECT_EQ(shift, Entry(index) % 4);
            ExpectEntry(index);
        }
        EXPECT_EQ(0U, Entry(kMixes));
    }
}

TEST_P(Catalogue, SetsTheEventThenAsksTheManagerForOneList) {
    ASSERT_EQ(0U, Ask());
    std::vector<std::string> expected{"event 0xcafe01 operation 3", "buffer 44 flags 3"};
    for (const CatalogueEntry& entry : kCatalogue) {
        expected.emplace_back("more 12");
        expected.push_back("more " + std::to_string(std::string(entry.name).size() + 1));
    }
    EXPECT_EQ(expected, TheTerminal().calls);
}

TEST_P(Catalogue, EventThatCannotBeSetChangesNothing) {
    TheTerminal().RefuseCall(1, "EventModify");
    EXPECT_EQ(0U, Ask());
    EXPECT_EQ(0U, Entry(kMixes));
}

TEST_P(Catalogue, EndsAtTheFirstAllocationThatFails) {
    TheTerminal().RefuseCall(1, "WFMAllocateBuffer");
    EXPECT_EQ(Terminal::kManagerOutOfMemory, Ask());
    for (unsigned refused = 1; refused <= 2 * kMixes; ++refused) {
        Reload();
        TheTerminal().RefuseCall(refused, "WFMAllocateMore");
        ASSERT_EQ(Terminal::kManagerOutOfMemory, Ask());
        const std::uint32_t complete = (refused - 1) / 2;
        for (std::uint32_t index = 0; index < complete; ++index) {
            ExpectEntry(index);
        }
        const bool hasRecord = refused % 2 == 0;
        EXPECT_EQ(hasRecord, Entry(complete) != 0);
        if (hasRecord) {
            EXPECT_EQ(complete + 1, HalfWord(Entry(complete)));
            EXPECT_EQ(GuestMemory::Pattern(8), *Memory().At(Entry(complete) + 8));
        }
        for (std::uint32_t index = complete + 1; index <= kMixes; ++index) {
            EXPECT_EQ(0U, Entry(index));
        }
        EXPECT_EQ("", TheTerminal().ErrorCode());
    }
    Reload();
    TheTerminal().RefuseCall(2 * kMixes + 1, "WFMAllocateMore");
    EXPECT_EQ(0U, Ask());
}

FOR_EVERY_IMAGE(Catalogue);

}  // namespace
}  // namespace emulation
