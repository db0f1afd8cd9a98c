#include "Unwinder.h"

#include <algorithm>
#include <stdexcept>

namespace emulation {

namespace {

constexpr std::uint32_t kAnyCondition = 0x0FFFFFFF;

/// The numbers behind `#` in `add sp, sp, #n` and `sub sp, sp, #n`.
std::uint32_t Operand(std::uint32_t word) {
    const std::uint32_t number = word & 0xFFU;
    const std::uint32_t turns = (word >> 8U) & 0xFU;
    std::uint64_t turned = number;
    turned = (turned << 32U) >> (2 * turns);
    return static_cast<std::uint32_t>(turned | (turned >> 32U));
}

/// Whether an instruction runs with the flags as they are.
bool Holds(std::uint32_t word, std::uint32_t flags) {
    const bool negative = (flags >> 31U) % 2 != 0;
    const bool zero = (flags >> 30U) % 2 != 0;
    const bool carry = (flags >> 29U) % 2 != 0;
    const bool overflow = (flags >> 28U) % 2 != 0;
    const std::uint32_t condition = word >> 28U;
    const bool asked[] = {zero,
                          carry,
                          negative,
                          overflow,
                          carry && !zero,
                          negative == overflow,
                          negative == overflow && !zero,
                          true};
    return asked[condition / 2] == (condition % 2 == 0);
}

}  // namespace

Unwinder::Unwinder(const PeFile& library, std::uint32_t base, ReadWord readWord)
    : library_(library), base_(base), readWord_(std::move(readWord)) {
}

const PeFunction* Unwinder::EntryAt(std::uint32_t address) const {
    const std::uint32_t rva = address - base_;
    for (const PeFunction& function : library_.functions) {
        if (rva >= function.rva && rva - function.rva < 4 * function.length) {
            return &function;
        }
    }
    return nullptr;
}

void Unwinder::GoUp(Context& context) const {
    const PeFunction* const entry = EntryAt(context.ProgramCounter());
    if (entry != nullptr) {
        const std::uint32_t start = base_ + entry->rva;
        const std::uint32_t body = start + 4 * entry->prologLength;
        if (context.ProgramCounter() >= body && RunsToItsEnd(context)) {
            return;
        }
        std::uint32_t at = std::min(context.ProgramCounter(), body);
        while (at > start) {
            at -= 4;
            Undo(readWord_(at), context);
        }
    }
    context.ProgramCounter() = context.ReturnAddress();
}

/// Runs the instructions that give the frame back and return, when these are the next ones.
bool Unwinder::RunsToItsEnd(Context& context) const {
    Context run = context;
    for (std::uint32_t at = context.ProgramCounter();; at += 4) {
        const std::uint32_t word = readWord_(at);
        const std::uint32_t plain = word & kAnyCondition;
        if (!Holds(word, context.flags)) {
            return false;
        }
        if ((plain & 0x0FFFF000U) == 0x028DD000U) {  // add sp, sp, #n
            run.StackPointer() += Operand(word);
        } else if ((plain & 0x0FFF0000U) == 0x08BD0000U) {  // pop {...}
            Pop(word & 0xFFFFU, run);
        } else if (plain == 0x049DE004U || plain == 0x049DF004U) {  // pop {lr}, pop {pc}
            Pop(1U << ((word >> 12U) & 0xFU), run);
        } else if (plain == 0x01A0F00EU || plain == 0x012FFF1EU) {  // mov pc, lr; bx lr
            run.ProgramCounter() = run.ReturnAddress();
        } else {
            return false;
        }
        if (run.ProgramCounter() != context.ProgramCounter()) {
            context = run;
            return true;
        }
    }
}

void Unwinder::Undo(std::uint32_t word, Context& context) const {
    if ((word & 0xFFFFF000U) == 0xE24DD000U) {  // sub sp, sp, #n
        context.StackPointer() += Operand(word);
    } else if ((word & 0xFFFF0000U) == 0xE92D0000U) {  // push {...}
        Pop(word & 0xFFFFU, context);
    } else if (word == 0xE52DE004U) {  // str lr, [sp, #-4]!
        Pop(1U << 14U, context);
    } else {
        throw std::runtime_error("an instruction in a prolog that is not undone");
    }
}

void Unwinder::Pop(std::uint32_t list, Context& context) const {
    for (unsigned number = 0; number < 16; ++number) {
        if ((list >> number) % 2 != 0) {
            context.registers[number] = readWord_(context.StackPointer());
            context.StackPointer() += 4;
        }
    }
}

}  // namespace emulation
