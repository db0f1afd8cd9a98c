#pragma once

#include <array>
#include <cstdint>

#include "Draw.h"
#include "RandomRequests.h"

namespace property {

/// A terminal as it stands in the street: cassettes that empty, are refilled, fail and are mended,
/// a service that is started anew, settings that somebody changes, and customers.
///
/// The same seed is the same life on every platform, as long as it is told the same answers.
class TerminalLife {
public:
    explicit TerminalLife(std::uint64_t seed);

    /// What happens before the first customer of a day.
    struct Morning {
        bool restarts = false;        ///< the objects are deleted, and created again
        std::uint32_t minimum = 100;  ///< what the registry holds for mixes 6 to 9
        unsigned failingCall = 0;     ///< of the calls while they are created; 0: none
    };
    Morning BeginDay();

    unsigned CustomersToday() { return draw_.Between(60, 180); }

    /// What the next customer asks for.
    RandomCase NextCustomer();

    /// Of the calls that the calculation makes, the one that fails; 0: none, as nearly always.
    unsigned FailingCall() { return draw_.Percent(2) ? draw_.Between(1, 3) : 0; }

    /// Gives out what a result names.
    void Dispense(const std::uint8_t* result);

    /// Everything that was in the cassettes at the beginning or was loaded, and what is in them.
    std::uint64_t Loaded() const { return loaded_; }
    std::uint64_t Held() const;

private:
    struct Cassette {
        std::uint32_t value = 0;
        std::uint32_t count = 0;
        std::uint16_t fault = 0;  ///< a status that keeps it out of service; 0: none
    };

    void Load(Cassette& cassette);
    static std::uint16_t StatusOf(const Cassette& cassette);

    Draw draw_;
    std::array<Cassette, 5> cassettes_{};
    std::uint16_t mix_ = 1;
    std::uint16_t limit_ = 40;
    bool partial_ = false;
    std::uint64_t loaded_ = 0;
};

}  // namespace property
