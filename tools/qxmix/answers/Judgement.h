#pragma once

#include "Outcome.h"
#include "dispenser/Dispenser.h"
#include "workers/Worker.h"

#include <array>
#include <cstdint>

namespace qxmix {

/// One calculation judged: by what was asked and what the items are worth, never by the remainder
/// that the module reports.
struct Judgement {
    Outcome outcome = Outcome::NoAnswer;
    Money asked;
    Money paid;
    std::uint64_t notes = 0;  ///< items that count as notes, those of no known cassette included
    std::uint64_t coins = 0;
    std::array<std::uint32_t, kMaxCashUnits> taken{};  ///< by cassette of the dispenser
    bool isHeld = true;     ///< whether no cassette gives more than it holds
    bool isProved = false;  ///< NoAnswer: whether it is known that none ever comes

    std::uint64_t Items() const { return notes + coins; }

    /// False for a missed deadline and a crash: nothing but `asked` and `outcome` counts then.
    bool IsAnswered() const { return outcome != Outcome::NoAnswer && outcome != Outcome::Crashed; }

    bool IsDangerous() const { return RowOf(outcome).exitStatus == ExitStatus::Danger; }
};

/// Judges a calculation.
///
/// @param dispenser  the dispenser asked; its limit is the one that holds.
/// @param amount     as asked.
Judgement Judge(const Dispenser& dispenser, std::uint32_t amount, const Reply& reply);

}  // namespace qxmix
