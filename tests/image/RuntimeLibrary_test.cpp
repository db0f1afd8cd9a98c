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
            const std::string path = PathOf(TheTarget());
            program_ = image::ReadElf(FileOf(path.substr(0, path.size() - 3) + "elf"));
        }
    }

    std::uint32_t Call(const char* function, const std::vector<std::uint32_t>& arguments) {
        const std::uint32_t rva = program_.Symbol(function) - program_.Symbol("IMAGE_BASE");
        Machine& machine = Module().TheMachine();
        return EmulatedModule::Value(
            machine.Call(machine.Base() + rva, arguments, Convention::Cdecl));
    }

    /// Calls a function whose result is a pair of words.
    std::uint64_t CallLong(const char* function, const std::vector<std::uint32_t>& arguments) {
        Call(function, arguments);
        return Pair(0);
    }

    /// What the last call left in a register and the next.
    std::uint64_t Pair(unsigned first) {
        const Context context = Module().TheMachine().Registers();
        return (std::uint64_t{context.registers[first + 1]} << 32U) | context.registers[first];
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

/// Numbers around every power of two.
std::vector<std::uint32_t> Numbers() {
    std::vector<std::uint32_t> numbers{0, 0xFFFFFFFF, 0x55555555, 1234567890};
    for (unsigned bit = 0; bit < 32; ++bit) {
        const std::uint32_t power = std::uint32_t{1} << bit;
        numbers.insert(numbers.end(), {power - 1, power, power + 1, 3 * power});
    }
    return numbers;
}

/// Numbers of single precision: of both signs zeros, infinities, the smallest and the largest of
/// every kind, and some that are no number.
std::vector<std::uint32_t> Singles() {
    std::vector<std::uint32_t> singles;
    for (const std::uint32_t sign : {0U, 0x80000000U}) {
        for (const std::uint32_t size :
             {0U, 1U, 2U, 0x00555555U, 0x007FFFFFU, 0x00800000U, 0x00800001U, 0x3F800000U,
              0x4CBEBC20U, 0x7F7FFFFFU, 0x7F800000U, 0x7F800001U, 0x7FC00000U, 0x7FFFFFFFU}) {
            singles.push_back(sign | size);
        }
    }
    return singles;
}

template <typename To, typename From>
To BitsAs(From from) {
    static_assert(sizeof(To) == sizeof(From));
    To to;
    std::memcpy(&to, &from, sizeof(to));
    return to;
}

TEST_P(RuntimeLibrary, DoublesOfNumbersAreTheirs) {
    for (const std::uint32_t number : Numbers()) {
        EXPECT_EQ(BitsAs<std::uint64_t>(static_cast<double>(number)),
                  CallLong("__aeabi_ui2d", {number}));
    }
}

TEST_P(RuntimeLibrary, DoublesOfSinglesAreTheirs) {
    for (const std::uint32_t single : Singles()) {
        const auto expected = static_cast<double>(BitsAs<float>(single));
        const std::uint64_t widened = CallLong("__aeabi_f2d", {single});
        if (expected == expected) {
            EXPECT_EQ(BitsAs<std::uint64_t>(expected), widened) << std::hex << single;
        } else {
            const auto number = BitsAs<double>(widened);
            EXPECT_TRUE(number != number) << std::hex << single;
        }
    }
}

TEST_P(RuntimeLibrary, SinglesCompareAsNumbers) {
    for (const std::uint32_t left : Singles()) {
        for (const std::uint32_t right : Singles()) {
            EXPECT_EQ(BitsAs<float>(left) < BitsAs<float>(right) ? 1U : 0U,
                      Call("__aeabi_fcmplt", {left, right}))
                << std::hex << left << ' ' << right;
        }
    }
}

TEST_P(RuntimeLibrary, LongDivisionGivesQuotientAndRemainder) {
    const std::vector<std::uint64_t> numbers{1,
                                             3,
                                             10,
                                             0xFFFFFFFF,
                                             0x100000000,
                                             0x100000001,
                                             1234567890123456789,
                                             0x8000000000000000,
                                             0xFFFFFFFFFFFFFFFF};
    for (const std::uint64_t dividend : numbers) {
        for (const std::uint64_t divisor : numbers) {
            const std::uint64_t quotient = CallLong(
                "__aeabi_uldivmod",
                {static_cast<std::uint32_t>(dividend), static_cast<std::uint32_t>(dividend >> 32U),
                 static_cast<std::uint32_t>(divisor), static_cast<std::uint32_t>(divisor >> 32U)});
            EXPECT_EQ(dividend / divisor, quotient) << dividend << ' ' << divisor;
            EXPECT_EQ(dividend % divisor, Pair(2)) << dividend << ' ' << divisor;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Images,
                         RuntimeLibrary,
                         testing::Combine(testing::Values(Target::Device, Target::DeviceThumb),
                                          testing::ValuesIn(kBases)),
                         NameOfParameters);

}  // namespace
}  // namespace emulation
