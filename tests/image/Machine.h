#pragma once

#include "GuestMemory.h"
#include "PeFile.h"
#include "Processor.h"
#include "Unwinder.h"

#include <functional>

namespace emulation {

/// How one call of the module went.
struct CallReport {
    std::uint32_t value = 0;  ///< what it returned
    bool returned = false;    ///< false: stopped by the budget or by a fault
    std::string fault;        ///< what it did that it must not do; empty when nothing
    std::uint64_t instructions =
        0;                         ///< of the module, and a word moved by the system counts as one
    std::uint32_t stackBytes = 0;  ///< from the caller's frame down to the deepest byte touched
    std::uint32_t stoppedAt = 0;   ///< address of the instruction that did not run any more
};

/// A function that the test supplies to the module.
struct TrappedFunction {
    Convention convention;
    unsigned arguments;
    std::function<std::uint32_t(const std::vector<std::uint32_t>&)> body;
};

/// An emulated machine with one library loaded, and nothing else but the test's own memory.
///
/// Every access is held to this: the image as its sections allow, the stack from the caller's frame
/// downwards and page after page, and the blocks of GuestMemory; on ARM at aligned addresses only.
class Machine {
public:
    /// Maps the library, moves it to `base` and binds its imports.
    ///
    /// @param imports  by name; a name that is missing throws.
    Machine(const PeFile& library,
            std::uint32_t base,
            std::map<std::string, TrappedFunction> imports,
            HostCode host = HostCode::Arm);
    ~Machine();
    Machine(const Machine&) = delete;
    Machine& operator=(const Machine&) = delete;

    /// Calls a function of the module.
    ///
    /// @param budget  instructions after which it is stopped.
    CallReport Call(std::uint32_t function,
                    const std::vector<std::uint32_t>& arguments,
                    Convention convention,
                    std::uint64_t budget = kPatience);

    /// Runs some instructions of an ARM machine with registers as given; the stack is as it was
    /// left.
    CallReport Resume(const Context& context, std::uint64_t instructions);

    /// The registers of an ARM machine at this moment.
    Context Registers() const { return processor_->Registers(); }

    /// Called before each instruction of the library, when there is something to call.
    std::function<void(std::uint32_t address)> beforeInstruction;

    /// What the host has taken of the stack before it calls; a multiple of 8.
    std::uint32_t usedOfStack = 0;

    /// The word at an address of the image or of the stack.
    std::uint32_t WordAt(std::uint32_t address) const;

    /// Address of a new function that the module can call; `body` gives its result.
    std::uint32_t AddFunction(TrappedFunction function);

    /// Adds to the instructions of the running call.
    void CountWork(std::uint64_t instructions) { instructions_ += instructions; }

    GuestMemory& Memory() { return memory_; }
    const PeFile& Library() const { return library_; }
    std::uint32_t Base() const { return base_; }
    std::uint32_t Export(const std::string& name) const {
        return base_ + library_.exports.at(name);
    }

    /// The word at an address of the loaded image.
    std::uint32_t ImageWord(std::uint32_t address) const;

    // What the system reads and writes for the module must be the module's to read and to write.
    std::vector<std::uint8_t> ReadForModule(std::uint32_t address, std::uint32_t size);
    void WriteForModule(std::uint32_t address, const std::vector<std::uint8_t>& bytes);
    std::uint32_t ReadWordForModule(std::uint32_t address);
    void WriteWordForModule(std::uint32_t address, std::uint32_t word);

    static constexpr std::uint64_t kPatience = 4'000'000'000ULL;
    static constexpr std::uint32_t kStackTop = 0x30100000;

private:
    void Load();
    void Bind(std::map<std::string, TrappedFunction>& imports);
    void Watch();
    CallReport Run(std::uint32_t address);
    void Fault(const std::string& what, std::uint32_t address);
    void CheckAccess(std::uint32_t address, std::uint32_t size, bool isWrite);
    bool IsAllowed(std::uint32_t address, std::uint32_t size, bool isWrite);
    bool IsAllowedOnStack(std::uint32_t address, std::uint32_t size);
    bool IsAllowedInImage(std::uint32_t address, std::uint32_t size, bool isWrite) const;
    void CheckInstruction(std::uint32_t address);
    void EnterFunction(std::uint32_t address);

    static void OnInstruction(uc_engine*, std::uint64_t address, std::uint32_t size, void* self);
    static void OnTrap(uc_engine*, std::uint64_t address, std::uint32_t size, void* self);
    static void OnAccess(uc_engine*,
                         uc_mem_type type,
                         std::uint64_t address,
                         int size,
                         std::int64_t value,
                         void* self);
    static bool OnUnmapped(uc_engine*,
                           uc_mem_type type,
                           std::uint64_t address,
                           int size,
                           std::int64_t value,
                           void* self);

    PeFile library_;
    std::uint32_t base_;
    GuestMemory memory_;
    uc_engine* engine_;
    std::unique_ptr<Processor> processor_;
    std::vector<std::uint8_t> image_;
    std::vector<std::uint8_t> stack_;
    std::vector<TrappedFunction> functions_;
    std::uint64_t instructions_ = 0;
    std::uint64_t budget_ = 0;
    std::uint32_t frameEnd_ = 0;  ///< end of what the running call may touch of the stack
    std::uint32_t deepest_ = 0;
    std::string fault_;
    bool outOfBudget_ = false;
};

}  // namespace emulation
