#pragma once

#include "EmulatedModule.h"

#include "Reference.h"

#include "ModuleUnderTest.h"

namespace emulation {

/// Puts requests to an emulated module as property::ModuleUnderTest puts them to the Linux library.
class RequestPlayer {
public:
    /// Creates the module's objects.
    explicit RequestPlayer(EmulatedModule& module);

    /// Lets the module calculate the request of an answer, with its object as given.
    ///
    /// @param shift  how far the records lie behind an aligned address.
    CallReport Calculate(const reference::Object& object,
                         unsigned shift,
                         property::Answer& answer,
                         std::uint64_t budget = Machine::kPatience);

private:
    void PutU16(std::uint32_t address, std::uint32_t value);

    EmulatedModule& module_;
    std::uint32_t outer_;
};

}  // namespace emulation
