#pragma once

#include "Terminal.h"

namespace emulation {

/// Slots of the module's objects, by number from 0.
enum class Slot : std::uint32_t { Destroy = 0, GetMixTypes = 1, MixCalculate = 2 };

/// The library in an emulated terminal, and the service provider that uses it.
///
/// Every call must end well: one that does what it must not do throws std::runtime_error.
class EmulatedModule {
public:
    static constexpr std::uint32_t kOuterSize = 116;
    static constexpr std::uint32_t kInnerSize = 124;

    EmulatedModule(const PeFile& library, std::uint32_t base, HostCode host = HostCode::Arm);

    /// Calls the entry point as the system does when it loads or unloads the library.
    CallReport Enter(std::uint32_t reason);

    /// CreateMixAlgorithm; returns the outer object.
    std::uint32_t Create();
    void Delete();

    /// Calls a slot of an object.
    CallReport Call(std::uint32_t object,
                    Slot slot,
                    const std::vector<std::uint32_t>& arguments,
                    std::uint64_t budget = Machine::kPatience);

    /// The words of an object's table of slots.
    std::uint32_t SlotTable(std::uint32_t object) { return machine_.Memory().WordAt(object); }
    std::uint32_t SlotAddress(std::uint32_t object, Slot slot) {
        return machine_.ImageWord(SlotTable(object) + 4 * static_cast<std::uint32_t>(slot));
    }

    Machine& TheMachine() { return machine_; }
    GuestMemory& Memory() { return machine_.Memory(); }
    Terminal& TheTerminal() { return terminal_; }

    /// What OnObjectCreated was given, in order, and the object's word 4 at that moment.
    std::vector<std::uint32_t> created;
    std::vector<std::uint32_t> selfAtCreation;

    /// What OnObjectCreated returns; the module ignores it.
    std::uint32_t hostResult = 0;

    /// Throws when the call did not return properly; else returns its value.
    static std::uint32_t Value(const CallReport& report);

private:
    std::uint32_t MakeHost();

    Terminal terminal_;
    Machine machine_;
    std::uint32_t host_;
};

}  // namespace emulation
