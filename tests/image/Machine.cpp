#include "Machine.h"

#include <algorithm>
#include <cstdio>
#include <stdexcept>

namespace emulation {

namespace {

constexpr std::uint32_t kPage = 0x1000;
constexpr std::uint32_t kStackSize = 0x00100000;
constexpr std::uint32_t kTraps = 0x38000000;
constexpr std::uint32_t kTrapSize = 16;
constexpr std::uint32_t kTrapsSize = 0x1000;
constexpr std::uint32_t kReturnAddress = kTraps + kTrapsSize - kTrapSize;

std::string Hex(std::uint32_t value) {
    char text[16];
    std::snprintf(text, sizeof(text), "0x%08x", static_cast<unsigned>(value));
    return text;
}

std::uint32_t WordIn(const std::vector<std::uint8_t>& bytes, std::uint32_t at) {
    return bytes.at(at) | (std::uint32_t{bytes.at(at + 1)} << 8U) |
           (std::uint32_t{bytes.at(at + 2)} << 16U) | (std::uint32_t{bytes.at(at + 3)} << 24U);
}

void PutWordIn(std::vector<std::uint8_t>& bytes, std::uint32_t at, std::uint32_t word) {
    for (unsigned index = 0; index < 4; ++index) {
        bytes.at(at + index) = static_cast<std::uint8_t>(word >> (8 * index));
    }
}

}  // namespace

Machine::Machine(const PeFile& library,
                 std::uint32_t base,
                 std::map<std::string, TrappedFunction> imports,
                 HostCode host)
    : library_(library), base_(base), engine_(OpenEngine(library.machine, host)),
      processor_(MakeProcessor(library.machine, host, engine_)), image_(library.image),
      stack_(kStackSize) {
    image_.resize((library.size + kPage - 1) / kPage * kPage);
    Expect(uc_mem_map(engine_, kTraps, kTrapsSize, UC_PROT_READ | UC_PROT_EXEC), "map traps");
    Load();
    Bind(imports);
    Expect(uc_mem_map_ptr(engine_, base_, image_.size(), UC_PROT_ALL, image_.data()), "map image");
    Expect(uc_mem_map_ptr(engine_, kStackTop - kStackSize, kStackSize, UC_PROT_READ | UC_PROT_WRITE,
                          stack_.data()),
           "map stack");
    Expect(uc_mem_map_ptr(engine_, GuestMemory::kStart, GuestMemory::kSize,
                          UC_PROT_READ | UC_PROT_WRITE, memory_.At(GuestMemory::kStart)),
           "map blocks");
    Watch();
}

Machine::~Machine() {
    uc_close(engine_);
}

void Machine::Load() {
    for (const std::uint32_t fixup : library_.fixups) {
        PutWordIn(image_, fixup, WordIn(image_, fixup) + base_ - library_.base);
    }
}

void Machine::Bind(std::map<std::string, TrappedFunction>& imports) {
    for (const PeImport& import : library_.imports) {
        const auto found = imports.find(import.function);
        if (found == imports.end()) {
            throw std::runtime_error("the test supplies no " + import.function);
        }
        PutWordIn(image_, import.word, AddFunction(found->second));
    }
}

std::uint32_t Machine::AddFunction(TrappedFunction function) {
    const std::uint32_t address =
        kTraps + kTrapSize * static_cast<std::uint32_t>(functions_.size());
    if (address >= kReturnAddress) {
        throw std::runtime_error("too many functions");
    }
    const std::vector<std::uint8_t> code =
        processor_->ReturnCode(function.arguments, function.convention);
    Expect(uc_mem_write(engine_, address, code.data(), code.size()), "write trap");
    functions_.push_back(std::move(function));
    return processor_->PointerTo(address);
}

void Machine::Watch() {
    uc_hook hook = 0;
    // The emulator takes a callback of any signature as an untyped pointer.
    Expect(uc_hook_add(engine_, &hook, UC_HOOK_CODE, reinterpret_cast<void*>(&OnInstruction), this,
                       base_, base_ + image_.size() - 1),
           "watch instructions");
    Expect(uc_hook_add(engine_, &hook, UC_HOOK_CODE, reinterpret_cast<void*>(&OnTrap), this, kTraps,
                       kReturnAddress - 1),
           "watch imports");
    Expect(uc_hook_add(engine_, &hook, UC_HOOK_MEM_READ | UC_HOOK_MEM_WRITE,
                       reinterpret_cast<void*>(&OnAccess), this, 1, 0),
           "watch accesses");
    Expect(uc_hook_add(engine_, &hook, UC_HOOK_MEM_INVALID, reinterpret_cast<void*>(&OnUnmapped),
                       this, 1, 0),
           "watch unmapped memory");
}

CallReport Machine::Call(std::uint32_t function,
                         const std::vector<std::uint32_t>& arguments,
                         Convention convention,
                         std::uint64_t budget) {
    // Four bytes off any larger alignment: that is all a caller promises.
    const std::uint32_t top = kStackTop - kPage - 4 - usedOfStack;
    instructions_ = 0;
    budget_ = budget;
    fault_.clear();
    outOfBudget_ = false;
    deepest_ = top;
    processor_->PrepareCall(function, arguments, convention, top, kReturnAddress);
    frameEnd_ = top + processor_->ArgumentBytes(arguments, convention);

    CallReport report = Run(function);
    report.stackBytes = top - deepest_;
    if (report.returned) {
        report.value = processor_->Result();
        const std::string damage = processor_->Damage(convention);
        if (!damage.empty()) {
            Fault("not left as it was: " + damage, function);
        }
    }
    report.fault = fault_;
    return report;
}

CallReport Machine::Run(std::uint32_t address) {
    const uc_err error = uc_emu_start(engine_, address, kReturnAddress, 0, 0);
    CallReport report;
    report.instructions = instructions_;
    report.stoppedAt = processor_->ProgramCounter();
    if (fault_.empty() && error != UC_ERR_OK) {
        Fault(uc_strerror(error), report.stoppedAt);
    }
    report.fault = fault_;
    report.returned = fault_.empty() && !outOfBudget_;
    return report;
}

CallReport Machine::Resume(const Context& context, std::uint64_t instructions) {
    instructions_ = 0;
    budget_ = instructions;
    fault_.clear();
    outOfBudget_ = false;
    processor_->SetRegisters(context);
    return Run(context.registers[15]);
}

std::uint32_t Machine::WordAt(std::uint32_t address) const {
    std::uint32_t word = 0;
    Expect(uc_mem_read(engine_, address, &word, sizeof(word)), "read word");
    return word;
}

std::uint32_t Machine::ImageWord(std::uint32_t address) const {
    return WordIn(image_, address - base_);
}

void Machine::Fault(const std::string& what, std::uint32_t address) {
    if (fault_.empty()) {
        fault_ = what + " at " + Hex(address) + ", instruction " +
                 Hex(processor_->ProgramCounter() - base_) + " of the image";
    }
    uc_emu_stop(engine_);
}

void Machine::CheckAccess(std::uint32_t address, std::uint32_t size, bool isWrite) {
    if (!IsAllowed(address, size, isWrite)) {
        Fault(isWrite ? "forbidden write" : "forbidden read", address);
    }
}

bool Machine::IsAllowed(std::uint32_t address, std::uint32_t size, bool isWrite) {
    if (address >= kStackTop - kStackSize && address < kStackTop) {
        return IsAllowedOnStack(address, size);
    }
    if (address >= base_ && address - base_ < image_.size()) {
        return IsAllowedInImage(address, size, isWrite);
    }
    return memory_.Allows(address, size, isWrite);
}

/// The system gives a stack its pages one after the other: who leaves one out dies.
bool Machine::IsAllowedOnStack(std::uint32_t address, std::uint32_t size) {
    if (address + size > frameEnd_ || address < deepest_ / kPage * kPage - kPage) {
        return false;
    }
    deepest_ = std::min(deepest_, address);
    return true;
}

bool Machine::IsAllowedInImage(std::uint32_t address, std::uint32_t size, bool isWrite) const {
    const std::uint32_t rva = address - base_;
    for (const PeSection& section : library_.sections) {
        if (rva >= section.rva && rva - section.rva < section.size &&
            size <= section.size - (rva - section.rva)) {
            // What is writable for the loader's sake alone is not the module's to write.
            return !isWrite || section.name == ".data";
        }
    }
    return false;
}

void Machine::CheckInstruction(std::uint32_t address) {
    const std::uint32_t rva = address - base_;
    const bool isCode = std::any_of(
        library_.sections.begin(), library_.sections.end(), [rva](const PeSection& section) {
            return section.IsExecutable() && rva >= section.rva && rva - section.rva < section.size;
        });
    if (!isCode) {
        Fault("execution of data", address);
    } else if (instructions_ >= budget_) {
        outOfBudget_ = true;
        uc_emu_stop(engine_);
    } else {
        ++instructions_;
        if (beforeInstruction) {
            beforeInstruction(address);
        }
    }
}

void Machine::EnterFunction(std::uint32_t address) {
    const std::uint32_t index = (address - kTraps) / kTrapSize;
    if (address % kTrapSize != 0 || index >= functions_.size()) {
        Fault("jump into nowhere", address);
        return;
    }
    const TrappedFunction& function = functions_[index];
    std::vector<std::uint32_t> arguments;
    for (unsigned argument = 0; argument < function.arguments; ++argument) {
        arguments.push_back(processor_->Argument(argument, function.convention));
    }
    processor_->SetResult(function.body(arguments));
}

std::vector<std::uint8_t> Machine::ReadForModule(std::uint32_t address, std::uint32_t size) {
    CheckAccess(address, size, false);
    std::vector<std::uint8_t> bytes(size);
    uc_mem_read(engine_, address, bytes.data(), size);
    return bytes;
}

void Machine::WriteForModule(std::uint32_t address, const std::vector<std::uint8_t>& bytes) {
    CheckAccess(address, static_cast<std::uint32_t>(bytes.size()), true);
    uc_mem_write(engine_, address, bytes.data(), bytes.size());
}

std::uint32_t Machine::ReadWordForModule(std::uint32_t address) {
    return WordIn(ReadForModule(address, 4), 0);
}

void Machine::WriteWordForModule(std::uint32_t address, std::uint32_t word) {
    std::vector<std::uint8_t> bytes(4);
    PutWordIn(bytes, 0, word);
    WriteForModule(address, bytes);
}

void Machine::OnInstruction(uc_engine*, std::uint64_t address, std::uint32_t, void* self) {
    static_cast<Machine*>(self)->CheckInstruction(static_cast<std::uint32_t>(address));
}

void Machine::OnTrap(uc_engine*, std::uint64_t address, std::uint32_t, void* self) {
    static_cast<Machine*>(self)->EnterFunction(static_cast<std::uint32_t>(address));
}

void Machine::OnAccess(uc_engine*,
                       uc_mem_type type,
                       std::uint64_t address,
                       int size,
                       std::int64_t,
                       void* self) {
    auto& machine = *static_cast<Machine*>(self);
    const auto place = static_cast<std::uint32_t>(address);
    const auto width = static_cast<std::uint32_t>(size);
    if (machine.processor_->AlignsAccesses() && place % width != 0) {
        machine.Fault("unaligned access", place);
    }
    machine.CheckAccess(place, width, type == UC_MEM_WRITE);
}

bool Machine::OnUnmapped(uc_engine*,
                         uc_mem_type,
                         std::uint64_t address,
                         int,
                         std::int64_t,
                         void* self) {
    static_cast<Machine*>(self)->Fault("access to nothing", static_cast<std::uint32_t>(address));
    return false;
}

}  // namespace emulation
