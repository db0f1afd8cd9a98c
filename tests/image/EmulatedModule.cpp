#include "EmulatedModule.h"

#include <stdexcept>

namespace emulation {

EmulatedModule::EmulatedModule(const PeFile& library, std::uint32_t base, HostCode host)
    : machine_(library, base, terminal_.Functions(), host), host_(MakeHost()) {
    terminal_.Serve(machine_);
}

/// An object with two slots, which is all that the module knows of its host.
std::uint32_t EmulatedModule::MakeHost() {
    const std::uint32_t reserved =
        machine_.AddFunction({Convention::Thiscall, 1, [this](const std::vector<std::uint32_t>&) {
                                  terminal_.complaint = "a call of the host's own slot";
                                  return 0U;
                              }});
    const std::uint32_t onObjectCreated = machine_.AddFunction(
        {Convention::Thiscall, 2, [this](const std::vector<std::uint32_t>& arguments) {
             if (arguments[0] != host_) {
                 terminal_.complaint = "a call of another host";
             }
             created.push_back(arguments[1]);
             selfAtCreation.push_back(machine_.Memory().WordAt(arguments[1] + 4));
             return hostResult;
         }});
    GuestMemory& memory = machine_.Memory();
    const std::uint32_t slots = memory.Allocate(8, Rights::Read);
    memory.PutWord(slots, reserved);
    memory.PutWord(slots + 4, onObjectCreated);
    const std::uint32_t host = memory.Allocate(4, Rights::Read);
    memory.PutWord(host, slots);
    return host;
}

std::uint32_t EmulatedModule::Value(const CallReport& report) {
    if (!report.fault.empty()) {
        throw std::runtime_error(report.fault);
    }
    if (!report.returned) {
        throw std::runtime_error("no return within the budget");
    }
    return report.value;
}

CallReport EmulatedModule::Enter(std::uint32_t reason) {
    const std::uint32_t entry = machine_.Base() + machine_.Library().entry;
    return machine_.Call(entry, {machine_.Base(), reason, 0}, Convention::Stdcall);
}

std::uint32_t EmulatedModule::Create() {
    return Value(machine_.Call(machine_.Export("CreateMixAlgorithm"), {host_}, Convention::Cdecl));
}

void EmulatedModule::Delete() {
    Value(machine_.Call(machine_.Export("DeleteMixAlgorithm"), {}, Convention::Cdecl));
}

CallReport EmulatedModule::Call(std::uint32_t object,
                                Slot slot,
                                const std::vector<std::uint32_t>& arguments,
                                std::uint64_t budget) {
    std::vector<std::uint32_t> all{object};
    all.insert(all.end(), arguments.begin(), arguments.end());
    return machine_.Call(SlotAddress(object, slot), all, Convention::Thiscall, budget);
}

}  // namespace emulation
