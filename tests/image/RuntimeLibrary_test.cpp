#include "ImageTest.h"

#include "ElfFile.h"

#include <cstring>

namespace emulation {
namespace {

/// The functions that the device's library brings along, called where the shipped file has them.
class RuntimeLibrary : public ImageTest {
protected:
    void SetUp() override {
        ImageTest::SetUp();
        if (!IsSkipped()) {
            program_ = image::ReadElf(FileOf(DllFolder() + "/device/QXMIX.elf"));
        }
    }

    std::uint32_t Call(const char* function, const std::vector<std::uint32_t>& arguments) {
        const std::uint32_t rva = program_.Symbol(function) - program_.Symbol("IMAGE_BASE");
        Machine& machine = Module().TheMachine();
        return EmulatedModule::Value(
            machine.Call(machine.Base() + rva, arguments, Convention::Cdecl));
    }

    std::uint32_t BlockOf(const Bytes& content, unsigned shift) {
        const std::uint32_t block =
            Memory().Allocate(static_cast<std::uint32_t>(content.size()), Rights::Read, shift);
        std::copy(content.begin(), content.end(), Memory().At(block));
        return block;
    }

private:
    image::ElfFile program_;
};

int SignOf(std::uint32_t result) {
    const auto number = static_cast<std::int32_t>(result);
    return number < 0 ? -1 : (number > 0 ? 1 : 0);
}

TEST_P(RuntimeLibrary, MemoryComparesByTheFirstByteThatDiffers) {
    const std::vector<Bytes> contents{{1, 2, 3}, {1, 2, 4}, {1, 0x80, 3}, {0xFF, 2, 3}, {0, 0, 0}};
    for (unsigned shift = 0; shift < 4; ++shift) {
        for (const Bytes& left : contents) {
            for (const Bytes& right : contents) {
                const std::uint32_t result =
                    Call("memcmp", {BlockOf(left, shift), BlockOf(right, 3 - shift), 3});
                EXPECT_EQ(left < right ? -1 : (left == right ? 0 : 1), SignOf(result));
            }
        }
    }
}

TEST_P(RuntimeLibrary, MemoryComparesOnlyTheBytesAskedFor) {
    EXPECT_EQ(0U, Call("memcmp", {BlockOf({1, 2}, 0), BlockOf({1, 3}, 1), 1}));
    EXPECT_EQ(0U, Call("memcmp", {0, 0, 0}));
}

TEST_P(RuntimeLibrary, TextEndsAtItsFirstZero) {
    EXPECT_EQ(0U, Call("strlen", {BlockOf({0}, 1)}));
    EXPECT_EQ(3U, Call("strlen", {BlockOf({'a', 0xFF, 'c', 0}, 3)}));
    EXPECT_EQ(2U, Call("strlen", {BlockOf({'a', 'b', 0, 'd', 0}, 2)}));
}

INSTANTIATE_TEST_SUITE_P(Images,
                         RuntimeLibrary,
                         testing::Combine(testing::Values(Target::Device),
                                          testing::ValuesIn(kBases)),
                         NameOfParameters);

}  // namespace
}  // namespace emulation
