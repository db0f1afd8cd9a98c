#include "ImageTest.h"

namespace emulation {
namespace {

class Objects : public ImageTest {
protected:
    /// The bytes of a block, with what a new block holds where nothing is named.
    struct Expected {
        explicit Expected(std::uint32_t size) {
            for (std::uint32_t offset = 0; offset < size; ++offset) {
                bytes.push_back(GuestMemory::Pattern(offset));
            }
        }
        Expected& U16(std::uint32_t offset, std::uint32_t value) {
            bytes.at(offset) = static_cast<std::uint8_t>(value);
            bytes.at(offset + 1) = static_cast<std::uint8_t>(value >> 8U);
            return *this;
        }
        Expected& U32(std::uint32_t offset, std::uint32_t value) {
            return U16(offset, value).U16(offset + 2, value >> 16U);
        }
        Bytes bytes;
    };

    Bytes BytesAt(std::uint32_t address, std::uint32_t size) {
        const std::uint8_t* const first = Memory().At(address);
        return Bytes(first, first + size);
    }

    Bytes DataOfImage() {
        Bytes bytes;
        for (const PeSection& section : Library().sections) {
            if (section.IsWritable()) {
                for (std::uint32_t at = 0; at + 4 <= section.size; at += 4) {
                    const std::uint32_t word = Module().TheMachine().ImageWord(
                        Module().TheMachine().Base() + section.rva + at);
                    for (unsigned shift = 0; shift < 32; shift += 8) {
                        bytes.push_back(static_cast<std::uint8_t>(word >> shift));
                    }
                }
            }
        }
        return bytes;
    }

    bool IsCode(std::uint32_t address) {
        const std::uint32_t rva = address - Module().TheMachine().Base();
        for (const PeSection& section : Library().sections) {
            if (section.IsExecutable() && rva >= section.rva && rva - section.rva < section.size) {
                return true;
            }
        }
        return false;
    }
};

TEST_P(Objects, EntryPointTouchesNothing) {
    const Bytes before = DataOfImage();
    constexpr std::uint32_t kDetach = 0;
    constexpr std::uint32_t kThreadAttach = 2;
    for (std::uint32_t reason = kDetach; reason <= kThreadAttach + 1; ++reason) {
        EXPECT_EQ(1U, EmulatedModule::Value(Module().Enter(reason)));
    }
    EXPECT_EQ(before, DataOfImage());
    EXPECT_TRUE(TheTerminal().calls.empty());
}

TEST_P(Objects, HostIsGivenTheOuterThenTheInnerObject) {
    const std::uint32_t outer = Module().Create();
    ASSERT_EQ(2U, Module().created.size());
    EXPECT_EQ(outer, Module().created[0]);
    EXPECT_EQ(Memory().WordAt(outer + 8), Module().created[1]);
    EXPECT_EQ(Module().created, Module().selfAtCreation);
}

TEST_P(Objects, ResultOfTheHostIsIgnored) {
    Module().hostResult = 0x80004005;
    const std::uint32_t outer = Module().Create();
    EXPECT_EQ(outer, Module().created.at(0));
    EXPECT_NE(0U, Memory().WordAt(outer + 8));
}

TEST_P(Objects, OuterObjectHasItsLayout) {
    const std::uint32_t outer = Module().Create();
    EXPECT_EQ(EmulatedModule::kOuterSize, Memory().SizeOf(outer));
    Expected expected(EmulatedModule::kOuterSize);
    expected.U32(0, Module().SlotTable(outer)).U32(4, outer).U32(8, Module().created.at(1));
    expected.U16(112, 6);
    EXPECT_EQ(expected.bytes, BytesAt(outer, EmulatedModule::kOuterSize));
}

TEST_P(Objects, InnerObjectHasItsLayout) {
    Module().Create();
    const std::uint32_t inner = Module().created.at(1);
    EXPECT_EQ(EmulatedModule::kInnerSize, Memory().SizeOf(inner));
    Expected expected(EmulatedModule::kInnerSize);
    expected.U32(0, Module().SlotTable(inner)).U32(4, inner).U32(8, 1);
    expected.U16(12, 10).U16(14, 1).U16(16, 10).U32(18, 100);
    EXPECT_EQ(expected.bytes, BytesAt(inner, EmulatedModule::kInnerSize));
}

TEST_P(Objects, SlotsAreCodeOfTheImage) {
    Module().Create();
    for (const std::uint32_t object : Module().created) {
        for (const Slot slot : {Slot::Destroy, Slot::GetMixTypes, Slot::MixCalculate}) {
            EXPECT_TRUE(IsCode(Module().SlotAddress(object, slot)));
        }
    }
    EXPECT_NE(Module().SlotTable(Module().created.at(0)), Module().SlotTable(Module().created[1]));
}

TEST_P(Objects, SecondCreationMakesAPairOfItsOwn) {
    const std::uint32_t first = Module().Create();
    const Bytes before = BytesAt(first, EmulatedModule::kOuterSize);
    const std::uint32_t second = Module().Create();
    EXPECT_NE(first, second);
    ASSERT_EQ(4U, Module().created.size());
    EXPECT_EQ(second, Module().created[2]);
    EXPECT_EQ(before, BytesAt(first, EmulatedModule::kOuterSize));

    const std::size_t blocks = Memory().Blocks().size();
    Module().Delete();
    Module().Delete();
    EXPECT_EQ(blocks - 1, Memory().Blocks().size());
    EXPECT_EQ(first, EmulatedModule::Value(Module().Call(first, Slot::Destroy, {1})));
}

TEST_P(Objects, DeletionFreesTheOuterObjectOnly) {
    const std::uint32_t outer = Module().Create();
    const std::uint32_t inner = Module().created.at(1);
    TheTerminal().calls.clear();
    Module().Delete();
    EXPECT_EQ(std::vector<std::string>{"free"}, TheTerminal().calls);
    EXPECT_FALSE(Memory().Allows(outer, 1, false));
    EXPECT_TRUE(Memory().Allows(inner, EmulatedModule::kInnerSize, true));
}

TEST_P(Objects, DeletionWithoutAnInstanceDoesNothing) {
    Module().Delete();
    Module().Create();
    Module().Delete();
    TheTerminal().calls.clear();
    Module().Delete();
    EXPECT_TRUE(TheTerminal().calls.empty());
}

TEST_P(Objects, DestructionFreesWhenBitZeroIsSet) {
    Module().Create();
    for (const std::uint32_t object : Module().created) {
        EXPECT_EQ(object,
                  EmulatedModule::Value(Module().Call(object, Slot::Destroy, {0xFFFFFFFF})));
        EXPECT_FALSE(Memory().Allows(object, 1, false));
    }
}

TEST_P(Objects, DestroyedObjectsHaveTheSlotsOfTheBareInterface) {
    Module().Create();
    for (const std::uint32_t object : Module().created) {
        const std::uint32_t slots = Module().SlotTable(object);
        Bytes before = BytesAt(object, EmulatedModule::kOuterSize);
        EXPECT_EQ(object,
                  EmulatedModule::Value(Module().Call(object, Slot::Destroy, {0xFFFFFFFE})));
        EXPECT_NE(slots, Module().SlotTable(object));
        EXPECT_NE(Module().SlotAddress(object, Slot::Destroy),
                  Module().SlotAddress(object, Slot::GetMixTypes));
        // Nothing but the pointer to the slots has changed.
        const Bytes after = BytesAt(object, EmulatedModule::kOuterSize);
        std::copy_n(after.begin(), 4, before.begin());
        EXPECT_EQ(before, after);
    }
    EXPECT_EQ(Module().SlotTable(Module().created[0]), Module().SlotTable(Module().created[1]));
}

TEST_P(Objects, BareInterfaceFreesWhenBitZeroIsSet) {
    Module().Create();
    for (const std::uint32_t object : Module().created) {
        for (int round = 0; round < 2; ++round) {
            EmulatedModule::Value(Module().Call(object, Slot::Destroy, {0}));
            EXPECT_TRUE(Memory().Allows(object, 1, true));
        }
        EXPECT_EQ(object, EmulatedModule::Value(Module().Call(object, Slot::Destroy, {1})));
        EXPECT_FALSE(Memory().Allows(object, 1, false));
    }
}

TEST_P(Objects, PureSlotsOfTheBareInterfaceEndTheProgram) {
    for (const Slot slot : {Slot::GetMixTypes, Slot::MixCalculate}) {
        Reload();
        const std::uint32_t outer = Module().Create();
        EmulatedModule::Value(Module().Call(outer, Slot::Destroy, {0}));
        const std::uint32_t room = Memory().Allocate(4, Rights::ReadWrite);
        const std::vector<std::uint32_t> arguments(slot == Slot::GetMixTypes ? 1 : 2, room);
        const CallReport report = Module().Call(outer, slot, arguments, 1000);
        EXPECT_FALSE(report.returned);
        if (TheTarget() == Target::Desktop) {
            EXPECT_EQ("pure call", TheTerminal().complaint);
            TheTerminal().complaint.clear();
        } else {
            EXPECT_NE(std::string::npos, report.fault.find("Invalid instruction")) << report.fault;
            EXPECT_TRUE(IsCode(report.stoppedAt));
        }
    }
}

TEST_P(Objects, CreationWithoutMemoryReturnsNull) {
    TheTerminal().RefuseCall(1, "malloc");
    EXPECT_EQ(0U, Module().Create());
    EXPECT_TRUE(Module().created.empty());
    Module().Delete();
}

TEST_P(Objects, FailedCreationForgetsTheInstance) {
    const std::uint32_t outer = Module().Create();
    TheTerminal().RefuseCall(1, "malloc");
    EXPECT_EQ(0U, Module().Create());
    Module().Delete();
    EXPECT_TRUE(Memory().Allows(outer, EmulatedModule::kOuterSize, true));
}

TEST_P(Objects, MissingInnerObjectIsNotReported) {
    TheTerminal().RefuseCall(2, "malloc");
    const std::uint32_t outer = Module().Create();
    EXPECT_EQ(1U, Module().created.size());
    Expected expected(EmulatedModule::kOuterSize);
    expected.U32(0, Module().SlotTable(outer)).U32(4, outer).U32(8, 0).U16(112, 6);
    EXPECT_EQ(expected.bytes, BytesAt(outer, EmulatedModule::kOuterSize));
}

TEST_P(Objects, MissingInnerObjectIsCalledAllTheSame) {
    for (const Slot slot : {Slot::GetMixTypes, Slot::MixCalculate}) {
        Reload();
        TheTerminal().RefuseCall(2, "malloc");
        const std::uint32_t outer = Module().Create();
        constexpr std::uint32_t kEventField = 100;
        Memory().PutWord(outer + kEventField, 0xCAFE01);
        TheTerminal().calls.clear();
        const std::uint32_t room = Memory().Allocate(4, Rights::ReadWrite);
        const std::vector<std::uint32_t> arguments(slot == Slot::GetMixTypes ? 1 : 2, room);
        const CallReport report = Module().Call(outer, slot, arguments);
        EXPECT_FALSE(report.returned);
        EXPECT_NE(std::string::npos, report.fault.find("0x00000000")) << report.fault;
        // The event is set before anybody looks at the inner object.
        const std::vector<std::string> event{"event 0xcafe01 operation 3"};
        EXPECT_EQ(slot == Slot::GetMixTypes ? event : std::vector<std::string>{},
                  TheTerminal().calls);
    }
}

FOR_EVERY_IMAGE(Objects);

}  // namespace
}  // namespace emulation
