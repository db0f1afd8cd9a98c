#include "Processor.h"

#include "PeFile.h"

#include <stdexcept>

namespace emulation {

void Expect(uc_err error, const char* what) {
    if (error != UC_ERR_OK) {
        throw std::runtime_error(std::string(what) + ": " + uc_strerror(error));
    }
}

std::uint32_t Processor::Register(int name) const {
    std::uint32_t value = 0;
    Expect(uc_reg_read(engine_, name, &value), "read register");
    return value;
}

void Processor::SetRegister(int name, std::uint32_t value) {
    Expect(uc_reg_write(engine_, name, &value), "write register");
}

std::uint32_t Processor::StackWord(std::uint32_t address) const {
    std::uint32_t word = 0;
    Expect(uc_mem_read(engine_, address, &word, sizeof(word)), "read stack");
    return word;
}

void Processor::SetStackWord(std::uint32_t address, std::uint32_t word) {
    Expect(uc_mem_write(engine_, address, &word, sizeof(word)), "write stack");
}

namespace {

/// Number that a register holds at a call, other for every register.
std::uint32_t Mark(unsigned index) {
    return 0x9E3779B9U * (index + 1);
}

class ArmProcessor final : public Processor {
public:
    ArmProcessor(uc_engine* engine, HostCode host) : Processor(engine), host_(host) {}

    void PrepareCall(std::uint32_t function,
                     const std::vector<std::uint32_t>& arguments,
                     Convention,
                     std::uint32_t stackTop,
                     std::uint32_t returnAddress) override {
        for (unsigned index = 0; index < 13; ++index) {
            SetRegister(UC_ARM_REG_R0 + static_cast<int>(index), Mark(index));
        }
        for (unsigned index = 0; index < arguments.size(); ++index) {
            SetRegister(UC_ARM_REG_R0 + static_cast<int>(index), arguments[index]);
        }
        stack_ = stackTop;
        SetRegister(UC_ARM_REG_SP, stackTop);
        SetRegister(UC_ARM_REG_LR, PointerTo(returnAddress));
        SetRegister(UC_ARM_REG_PC, function);
    }

    std::string Damage(Convention) const override {
        for (unsigned index = 4; index < 12; ++index) {
            if (Register(UC_ARM_REG_R0 + static_cast<int>(index)) != Mark(index)) {
                return "r" + std::to_string(index);
            }
        }
        if (StackPointer() != stack_) {
            return "stack pointer";
        }
        constexpr std::uint32_t kThumbState = 0x20;
        const bool isThumb = (Register(UC_ARM_REG_CPSR) & kThumbState) != 0;
        return isThumb != (host_ == HostCode::Thumb) ? "state of the processor" : "";
    }

    std::uint32_t StackPointer() const override { return Register(UC_ARM_REG_SP); }
    std::uint32_t ProgramCounter() const override { return Register(UC_ARM_REG_PC); }
    std::uint32_t Result() const override { return Register(UC_ARM_REG_R0); }

    std::uint32_t Argument(unsigned index, Convention) const override {
        return index < 4 ? Register(UC_ARM_REG_R0 + static_cast<int>(index))
                         : StackWord(StackPointer() + 4 * (index - 4));
    }

    void SetResult(std::uint32_t value) override { SetRegister(UC_ARM_REG_R0, value); }

    std::vector<std::uint8_t> ReturnCode(unsigned, Convention) const override {
        if (host_ == HostCode::Thumb) {
            return {0x70, 0x47};  // bx lr
        }
        return {0x0E, 0xF0, 0xA0, 0xE1};  // mov pc, lr
    }

    std::uint32_t PointerTo(std::uint32_t address) const override {
        return host_ == HostCode::Thumb ? address | 1U : address;
    }

    std::uint32_t ArgumentBytes(const std::vector<std::uint32_t>&, Convention) const override {
        return 0;
    }

    Context Registers() const override {
        Context context;
        for (unsigned index = 0; index < context.registers.size(); ++index) {
            context.registers[index] = Register(NameOf(index));
        }
        context.flags = Register(UC_ARM_REG_CPSR);
        return context;
    }

    void SetRegisters(const Context& context) override {
        for (unsigned index = 0; index < context.registers.size(); ++index) {
            SetRegister(NameOf(index), context.registers[index]);
        }
        SetRegister(UC_ARM_REG_CPSR, context.flags);
    }

    bool AlignsAccesses() const override { return true; }

private:
    /// The emulator's name of the register of a number.
    static int NameOf(unsigned number) {
        constexpr int kLast[] = {UC_ARM_REG_SP, UC_ARM_REG_LR, UC_ARM_REG_PC};
        constexpr unsigned kNumbered = 13;
        return number < kNumbered ? UC_ARM_REG_R0 + static_cast<int>(number)
                                  : kLast[number - kNumbered];
    }

    HostCode host_;
    std::uint32_t stack_ = 0;
};

class X86Processor final : public Processor {
public:
    using Processor::Processor;

    void PrepareCall(std::uint32_t function,
                     const std::vector<std::uint32_t>& arguments,
                     Convention convention,
                     std::uint32_t stackTop,
                     std::uint32_t returnAddress) override {
        for (unsigned index = 0; index < kRegisters.size(); ++index) {
            SetRegister(kRegisters[index], Mark(index));
        }
        const unsigned inRegister = convention == Convention::Thiscall ? 1 : 0;
        if (inRegister != 0) {
            SetRegister(UC_X86_REG_ECX, arguments.at(0));
        }
        arguments_ = static_cast<std::uint32_t>(arguments.size()) - inRegister;
        stack_ = stackTop;
        for (unsigned index = 0; index < arguments_; ++index) {
            SetStackWord(stackTop + 4 + 4 * index, arguments[index + inRegister]);
        }
        SetStackWord(stackTop, returnAddress);
        SetRegister(UC_X86_REG_FPTAG, kEmptyFloatStack);
        SetRegister(UC_X86_REG_ESP, stackTop);
        SetRegister(UC_X86_REG_EIP, function);
    }

    std::string Damage(Convention convention) const override {
        for (unsigned index = kScratch; index < kRegisters.size(); ++index) {
            if (Register(kRegisters[index]) != Mark(index)) {
                return "register " + std::to_string(index);
            }
        }
        const std::uint32_t popped = convention == Convention::Cdecl ? 0 : 4 * arguments_;
        if (StackPointer() != stack_ + 4 + popped) {
            return "stack pointer";
        }
        constexpr std::uint32_t kBackwards = 0x400;
        if ((Register(UC_X86_REG_EFLAGS) & kBackwards) != 0) {
            return "direction flag";
        }
        return Register(UC_X86_REG_FPTAG) != kEmptyFloatStack ? "floating point stack" : "";
    }

    std::uint32_t StackPointer() const override { return Register(UC_X86_REG_ESP); }
    std::uint32_t ProgramCounter() const override { return Register(UC_X86_REG_EIP); }
    std::uint32_t Result() const override { return Register(UC_X86_REG_EAX); }

    std::uint32_t Argument(unsigned index, Convention convention) const override {
        if (convention == Convention::Thiscall) {
            if (index == 0) {
                return Register(UC_X86_REG_ECX);
            }
            --index;
        }
        return StackWord(StackPointer() + 4 + 4 * index);
    }

    void SetResult(std::uint32_t value) override { SetRegister(UC_X86_REG_EAX, value); }

    std::vector<std::uint8_t> ReturnCode(unsigned arguments, Convention convention) const override {
        const unsigned inRegister = convention == Convention::Thiscall ? 1 : 0;
        const unsigned popped = convention == Convention::Cdecl ? 0 : 4 * (arguments - inRegister);
        return {0xC2, static_cast<std::uint8_t>(popped), 0};  // ret popped
    }

    std::uint32_t ArgumentBytes(const std::vector<std::uint32_t>& arguments,
                                Convention convention) const override {
        const std::size_t inRegister = convention == Convention::Thiscall ? 1 : 0;
        return static_cast<std::uint32_t>(4 + 4 * (arguments.size() - inRegister));
    }

    Context Registers() const override { throw NotArm(); }
    void SetRegisters(const Context&) override { throw NotArm(); }

    bool AlignsAccesses() const override { return false; }

private:
    static std::logic_error NotArm() {
        return std::logic_error("registers of an ARM processor are asked of another one");
    }

    static constexpr std::uint32_t kEmptyFloatStack = 0xFFFF;
    static constexpr unsigned kScratch = 3;  ///< the registers before are the function's
    static constexpr std::array<int, 7> kRegisters{UC_X86_REG_EAX, UC_X86_REG_ECX, UC_X86_REG_EDX,
                                                   UC_X86_REG_EBX, UC_X86_REG_ESI, UC_X86_REG_EDI,
                                                   UC_X86_REG_EBP};

    std::uint32_t stack_ = 0;
    std::uint32_t arguments_ = 0;
};

}  // namespace

uc_engine* OpenEngine(std::uint32_t machine, HostCode host) {
    uc_engine* engine = nullptr;
    if (machine == kMachineArm) {
        Expect(uc_open(UC_ARCH_ARM, UC_MODE_ARM, &engine), "open ARM");
        const int model = host == HostCode::Thumb ? UC_CPU_ARM_TI925T : UC_CPU_ARM_SA1100;
        Expect(uc_ctl_set_cpu_model(engine, model), "choose the ARM processor");
    } else {
        Expect(uc_open(UC_ARCH_X86, UC_MODE_32, &engine), "open x86");
    }
    return engine;
}

std::unique_ptr<Processor> MakeProcessor(std::uint32_t machine, HostCode host, uc_engine* engine) {
    if (machine == kMachineArm) {
        return std::make_unique<ArmProcessor>(engine, host);
    }
    return std::make_unique<X86Processor>(engine);
}

}  // namespace emulation
