#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "../reference/Reference.h"
#include "CMixAlgorithm.h"

namespace property {

/// Everything that a host sees of one calculation.
struct Answer {
    std::int32_t returned = 0;
    std::string lastCode;  ///< empty when the call recorded none
    std::array<std::uint8_t, reference::kRequestBytes> request{};
    std::array<std::uint8_t, reference::kResultBytes> result{};
};

/// What differs between two answers, in words; empty when nothing does.
std::string Difference(const Answer& expected, const Answer& actual);

/// The module as a host uses it: through its two exported functions and the object's slots.
class ModuleUnderTest final : private MixAlgorithmHost {
public:
    ModuleUnderTest();
    ~ModuleUnderTest();
    ModuleUnderTest(const ModuleUnderTest&) = delete;
    ModuleUnderTest& operator=(const ModuleUnderTest&) = delete;

    /// Lets the module calculate the request of an answer, with its object as given.
    ///
    /// @param shift  0 to 7: how far the records lie behind an aligned address.
    /// @return false when the module wrote beside the request or the result.
    bool Calculate(const reference::Object& object, unsigned shift, Answer& answer);

private:
    void Reserved() noexcept override {}
    std::int32_t OnObjectCreated(IMixAlgorithm* object) noexcept override;

    std::vector<IMixAlgorithm*> created_;
    IMixAlgorithm* outer_ = nullptr;
};

}  // namespace property
