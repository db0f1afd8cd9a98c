#pragma once

#include <cstdint>

/// What the fake module does, told by the amount of a request; any other amount is paid in items
/// from position 0.
enum class FakeBehaviour : std::uint32_t {
    Crash = 1001,
    Hang = 1002,
    TraceForEver = 1003,
    Leave = 1004,           ///< ends its process with status 7
    OddCode = 1005,         ///< returns -14
    Print = 1006,           ///< prints a line; pays 1 item if there is nothing to read, else 2
    PayFromNowhere = 1007,  ///< one item from position 5
    TakeAll = 1008,         ///< 1000 items from position 0
    Refuse = 1009,          ///< returns -306 and leaves 971A2
};

/// What its creation does, told by the macro QXMIX_FAKE_CREATION.
enum class FakeCreation { Usual, NoObject, Crash };
