#pragma once

#include "ElfFile.h"

namespace image {

/// A piece of code that runs in a frame, as the device's system unwinds it.
///
/// The frame is set up by the first instructions, the prolog: perhaps one that makes room for
/// arguments, one that saves registers, the return address among them, and then any that make room
/// below. Whatever interrupts the code, the system
/// undoes as much of the prolog as has run, and is at the place of the call.
struct FunctionEntry {
    std::uint32_t start = 0;         ///< address of the first instruction
    std::uint32_t prologLength = 0;  ///< in instructions
    std::uint32_t length = 0;        ///< in instructions, data behind them included
};

/// Code without an entry has no frame: its return address is in its register.
///
/// Reads every instruction of the program. Throws ImageError for each that would lead the system
/// astray: one that moves the stack pointer elsewhere than in a prolog and in what takes its frame
/// down whole and returns, a call without a saved return address, code outside any function.
std::vector<FunctionEntry> FindFunctions(const ElfFile& elf);

constexpr std::uint32_t kFunctionEntrySize = 8;

/// The table as the system reads it: per entry the address, 8 bits of prolog, 22 bits of length, a
/// bit for instructions of 32 bits, and none for handlers of the function's own.
/// Source: IMAGE_CE_RUNTIME_FUNCTION_ENTRY in the documentation of Windows CE.
Bytes EncodeFunctions(const std::vector<FunctionEntry>& functions);

}  // namespace image
