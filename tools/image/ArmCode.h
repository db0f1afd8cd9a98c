#pragma once

#include <cstdint>

/// What single ARM instructions do to the stack pointer, the return address and the flow of
/// control. Source of the numbers: the ARM architecture, version 4.
namespace image::arm {

constexpr std::uint32_t kAlways = 0xE0000000;
constexpr unsigned kStackPointer = 13;
constexpr unsigned kReturnAddress = 14;
constexpr unsigned kProgramCounter = 15;

constexpr std::uint32_t Bit(unsigned number) {
    return std::uint32_t{1} << number;
}

constexpr std::uint32_t ConditionOf(std::uint32_t word) {
    return word & 0xF0000000U;
}

/// The instruction as it would be without its condition.
constexpr std::uint32_t Unconditional(std::uint32_t word) {
    return (word & 0x0FFFFFFFU) | kAlways;
}

/// Registers that `push {...}` stores; 0 for any other instruction.
constexpr std::uint32_t Pushed(std::uint32_t word) {
    if (word == 0xE52DE004U) {  // str lr, [sp, #-4]!
        return Bit(kReturnAddress);
    }
    return (word & 0xFFFF0000U) == 0xE92D0000U ? word & 0xFFFFU : 0;
}

/// Registers that `pop {...}` loads, under any condition; 0 for any other instruction.
constexpr std::uint32_t Popped(std::uint32_t word) {
    const std::uint32_t plain = Unconditional(word);
    if ((plain & 0xFFFF0FFFU) == 0xE49D0004U) {  // ldr register, [sp], #4
        return Bit((plain >> 12U) & 0xFU);
    }
    return (plain & 0xFFFF0000U) == 0xE8BD0000U ? plain & 0xFFFFU : 0;
}

/// The number that an immediate operand stands for: eight bits, turned right.
constexpr std::uint32_t Immediate(std::uint32_t word) {
    const std::uint32_t number = word & 0xFFU;
    const unsigned turn = (word >> 7U) & 0x1EU;
    return turn == 0 ? number : (number >> turn) | (number << (32U - turn));
}

/// Bytes that `sub sp, sp, #n` makes room for, and that `add sp, sp, #n` gives back; else 0.
constexpr std::uint32_t Reserved(std::uint32_t word) {
    return (word & 0xFFFFF000U) == 0xE24DD000U ? Immediate(word) : 0;
}
constexpr std::uint32_t Released(std::uint32_t word) {
    return (Unconditional(word) & 0xFFFFF000U) == 0xE28DD000U ? Immediate(word) : 0;
}

/// Whether it is `mov pc, lr` or `bx lr`, under any condition.
constexpr bool ReturnsByRegister(std::uint32_t word) {
    const std::uint32_t plain = Unconditional(word);
    return plain == 0xE1A0F00EU || plain == 0xE12FFF1EU;
}

constexpr bool IsBranch(std::uint32_t word) {
    return (word & 0x0F000000U) == 0x0A000000U;
}
constexpr bool IsCall(std::uint32_t word) {
    return (word & 0x0F000000U) == 0x0B000000U;
}

/// Where a branch or call at an address leads.
constexpr std::uint32_t TargetOf(std::uint32_t word, std::uint32_t address) {
    const std::uint32_t distance = (word & 0x00FFFFFFU) << 2U;
    const std::uint32_t sign = (word & 0x00800000U) != 0 ? 0xFC000000U : 0;
    return address + 8 + (distance | sign);
}

/// Whether it changes a register; of 0 to 14.
bool Writes(std::uint32_t word, unsigned changed);

}  // namespace image::arm
