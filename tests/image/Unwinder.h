#pragma once

#include "PeFile.h"

#include <array>
#include <functional>

namespace emulation {

/// The registers of an ARM processor, as a system keeps them of what it has interrupted.
struct Context {
    std::array<std::uint32_t, 16> registers{};
    std::uint32_t flags = 0;

    std::uint32_t& StackPointer() { return registers[13]; }
    std::uint32_t& ReturnAddress() { return registers[14]; }
    std::uint32_t& ProgramCounter() { return registers[15]; }
};

/// Finds the way back to a caller by the table of functions, as the device's system does for an
/// exception handler of a host.
///
/// In a prolog and behind it, what has run of the prolog is undone, last instruction first; in what
/// takes the frame down, the rest of it is run. Code without an entry has its return address in the
/// register. Source: Virtual Unwinding, in the documentation of Windows CE. Shares no code with the
/// writer of the table.
class Unwinder {
public:
    using ReadWord = std::function<std::uint32_t(std::uint32_t address)>;

    /// @param base  where the library lies, its addresses moved there.
    Unwinder(const PeFile& library, std::uint32_t base, ReadWord readWord);

    /// Makes the registers those of the caller, as they are when the call returns. Throws
    /// std::runtime_error for an instruction of a prolog that no system undoes.
    void GoUp(Context& context) const;

    /// The entry that covers an address; null without one.
    const PeFunction* EntryAt(std::uint32_t address) const;

private:
    bool RunsToItsEnd(Context& context) const;
    void Undo(std::uint32_t word, Context& context) const;
    void Pop(std::uint32_t list, Context& context) const;

    const PeFile& library_;
    std::uint32_t base_;
    ReadWord readWord_;
};

}  // namespace emulation
