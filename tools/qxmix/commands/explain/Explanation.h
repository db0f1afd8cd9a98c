#pragma once

#include "amounts/MixAnswers.h"
#include "amounts/Neighbours.h"
#include "units/Units.h"

#include <cstdint>
#include <utility>
#include <vector>

namespace qxmix {

/// What decided an answer.
enum class DecidedBy {
    Nothing,       ///< every step went well: the amount is paid
    MixNumber,     ///< no such mix
    Amount,        ///< the exponent: the amount wrapped, and another one is paid
    NoUnits,       ///< no unit serves
    SmallestNote,  ///< the amount does not reach the smallest note
    Capacity,      ///< the units do not hold the amount
    UnitCount,     ///< more units than a search handles
    Search,        ///< what the search found, or did not find
    Limit,         ///< the dispense limit
    Spreading,     ///< cassettes give less than was counted on them
};

/// Its name in JSON; what is no check of the module has none.
const char* NameOf(DecidedBy decidedBy);

/// An answer and the story behind it.
struct Explanation {
    Explanation(Answer explained, Units built)
        : answer(std::move(explained)), units(std::move(built)) {}

    Answer answer;
    Units units;
    DecidedBy decidedBy = DecidedBy::Nothing;

    /// The amount that was searched for: a partial amount is lowered to what the units hold.
    std::uint32_t sought = 0;

    bool IsLowered() const { return sought != units.Amount(); }

    /// Whether a unit kept is worth nothing: every search refuses then.
    bool HasWorthlessUnit() const;

    /// Items that the search took of each unit kept, in the mix's order; empty when nobody knows.
    /// Where the limit decided, what it would have taken without one.
    std::vector<std::uint32_t> taken;

    /// Items that the cassettes of each unit kept give.
    std::vector<std::uint32_t> given;

    Surroundings around;
};

/// Tells how an answer came about.
///
/// @param questions  of one mix.
Explanation Explain(const MixQuestions& questions, const Answer& answer, Asker& asker);

}  // namespace qxmix
