#include "LittleEndian.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <string>

namespace {

template <typename Number>
std::string BytesOf(const Number& number) {
    std::string bytes(sizeof(number), '\0');
    std::memcpy(&bytes[0], &number, sizeof(number));
    return bytes;
}

TEST(LittleEndian, StoresLowestByteFirst) {
    EXPECT_EQ(BytesOf(u16le(0x1234)), "\x34\x12");
    EXPECT_EQ(BytesOf(s16le(-2)), "\xFE\xFF");
    EXPECT_EQ(BytesOf(u32le(0x12345678)), "\x78\x56\x34\x12");
}

TEST(LittleEndian, ReadsBackEveryByte) {
    for (const std::uint32_t number :
         {0U, 1U, 0xFFU, 0x100U, 0xFFFFU, 0x10000U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) {
        EXPECT_EQ(std::uint32_t{u32le(number)}, number);
        const auto low = static_cast<std::uint16_t>(number);
        EXPECT_EQ(std::uint16_t{u16le(low)}, low);
    }
}

TEST(LittleEndian, KeepsSignOfSixteenBits) {
    for (const int number : {-32768, -1, 0, 1, 32767}) {
        EXPECT_EQ(std::int16_t{s16le(static_cast<std::int16_t>(number))}, number);
    }
}

TEST(LittleEndian, LiesAtAnyAddress) {
    std::array<unsigned char, 12> memory{};
    for (std::size_t start = 0; start < 8; ++start) {
        memory = {};
        auto* number = reinterpret_cast<u32le*>(memory.data() + start);
        *number = 0xA1B2C3D4U;
        EXPECT_EQ(std::uint32_t{*number}, 0xA1B2C3D4U);
        EXPECT_EQ(memory[start], 0xD4);
        EXPECT_EQ(memory[start + 3], 0xA1);
        EXPECT_EQ(memory[start + 4], 0);
    }
}

TEST(LittleEndian, LeavesMemoryAsItIsWhenOverlaid) {
    std::array<unsigned char, 4> memory{0x78, 0x56, 0x34, 0x12};
    EXPECT_EQ(std::uint32_t{*new (memory.data()) u32le}, 0x12345678U);
}

}  // namespace
