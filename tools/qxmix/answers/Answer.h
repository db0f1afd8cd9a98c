#pragma once

#include "Outcome.h"
#include "dispenser/Draining.h"
#include "workers/Asker.h"

#include <cstdint>
#include <optional>
#include <string>

namespace qxmix {

/// What one mix of a dispenser is asked.
struct Asking {
    Asking(std::uint32_t askedAmount, std::uint16_t askedMix = 0, Milliseconds given = {})
        : amount(askedAmount), mix(askedMix), deadline(given) {}

    std::uint32_t amount;
    std::uint16_t mix;
    Milliseconds deadline;
};

/// A question with all that is known of its answer: what came, what it is worth, and what became of
/// it. It is judged once, by what was asked and what the items are worth, never by the remainder
/// that the module reports; whoever tells of it decides nothing.
///
/// Without an answer nothing counts but the question, `outcome`, `isProved`, `code` and `crash`.
struct Answer : Asking {
    explicit Answer(const Asking& asking) : Asking(asking) {}

    Outcome outcome = Outcome::NoAnswer;
    bool isProved = false;  ///< NoAnswer: whether it is known that none ever comes
    std::string crash;      ///< Crashed: "signal 11 (Segmentation fault)"

    // What came.
    std::int32_t returned = 0;
    CassetteItems values{};  ///< items by slot, as the module wrote them
    std::uint32_t remainder = 0;
    std::optional<std::uint32_t> amountAfter;  ///< as it came back; none: it was not kept
    std::string code;                          ///< error code left in the registry; empty: none
    std::chrono::nanoseconds took{0};          ///< processor time

    // What it is worth.
    Money asked;
    Money paid;
    std::uint64_t notes = 0;  ///< items that count as notes, those of no known cassette included
    std::uint64_t coins = 0;
    CassetteItems taken{};  ///< by cassette of the dispenser
    bool isHeld = true;     ///< whether no cassette gives more than it holds

    std::uint64_t Items() const { return notes + coins; }

    bool IsAnswered() const { return qxmix::IsAnswered(outcome); }

    bool IsDangerous() const { return RowOf(outcome).exitStatus == ExitStatus::Danger; }

    /// Adds up what the values are worth.
    ///
    /// @param dispenser  the one that was asked.
    void AddUp(const Dispenser& dispenser);
};

/// How the call came to its end.
inline Ending::Kind EndingOf(Outcome outcome, bool isProved) {
    return isProved                       ? Ending::Kind::Endless
           : outcome == Outcome::NoAnswer ? Ending::Kind::NoAnswer
           : outcome == Outcome::Crashed  ? Ending::Kind::Crashed
                                          : Ending::Kind::Answered;
}

/// Judges what came back.
///
/// @param dispenser  the dispenser asked; its limit is the one that holds.
Answer Judge(const Dispenser& dispenser, const Asking& asking, const Reply& reply);

/// Asks a request of a dispenser, without trace lines, and judges what comes back.
Answer AskSilently(Asker& asker,
                   const Dispenser& dispenser,
                   const MixRequest& request,
                   Milliseconds deadline);

}  // namespace qxmix
