#pragma once

#include "Unwinder.h"

#include <unicorn/unicorn.h>

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace emulation {

/// How arguments travel. On ARM all are the same.
enum class Convention {
    Cdecl,     ///< exports, the C library
    Stdcall,   ///< the system and the XFS manager
    Thiscall,  ///< slots of objects; the object is the first argument
};

/// What the host and the system are compiled to, on ARM.
enum class HostCode { Arm, Thumb };

/// What a processor's calls look like: where arguments, results and return addresses are, and which
/// registers a function has to leave as they were.
class Processor {
public:
    explicit Processor(uc_engine* engine) : engine_(engine) {}
    virtual ~Processor() = default;
    Processor(const Processor&) = delete;
    Processor& operator=(const Processor&) = delete;

    /// Fills the registers with recognisable numbers and puts the arguments where they belong.
    ///
    /// @param stackTop  where the caller's frame begins.
    virtual void PrepareCall(std::uint32_t function,
                             const std::vector<std::uint32_t>& arguments,
                             Convention convention,
                             std::uint32_t stackTop,
                             std::uint32_t returnAddress) = 0;

    /// What a function that has returned did not leave as it was; empty when all is well.
    virtual std::string Damage(Convention convention) const = 0;

    virtual std::uint32_t StackPointer() const = 0;
    virtual std::uint32_t ProgramCounter() const = 0;
    virtual std::uint32_t Result() const = 0;

    /// Seen by a function that was just entered.
    virtual std::uint32_t Argument(unsigned index, Convention convention) const = 0;
    virtual void SetResult(std::uint32_t value) = 0;

    /// Instructions that return at once, for a function of so many arguments.
    virtual std::vector<std::uint8_t> ReturnCode(unsigned arguments,
                                                 Convention convention) const = 0;

    /// What a pointer to such a function at an address looks like.
    virtual std::uint32_t PointerTo(std::uint32_t address) const { return address; }

    /// Bytes above the stack pointer, at a call, that belong to the function.
    virtual std::uint32_t ArgumentBytes(const std::vector<std::uint32_t>& arguments,
                                        Convention convention) const = 0;

    /// All registers, of an ARM processor.
    virtual Context Registers() const = 0;
    virtual void SetRegisters(const Context& context) = 0;

    /// Whether accesses must be aligned to their size.
    virtual bool AlignsAccesses() const = 0;

protected:
    std::uint32_t Register(int name) const;
    void SetRegister(int name, std::uint32_t value);
    std::uint32_t StackWord(std::uint32_t address) const;
    void SetStackWord(std::uint32_t address, std::uint32_t word);

    uc_engine* engine_;
};

/// An emulator of a machine number of the executable format: a 32-bit x86 or on ARM an SA1100,
/// which is ARMv4, and for hosts of Thumb code a TI925T, which is ARMv4T.
uc_engine* OpenEngine(std::uint32_t machine, HostCode host);
std::unique_ptr<Processor> MakeProcessor(std::uint32_t machine, HostCode host, uc_engine* engine);

/// Throws std::runtime_error for a failed call of the emulator.
void Expect(uc_err error, const char* what);

}  // namespace emulation
