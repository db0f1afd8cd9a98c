#pragma once

#include "errors/Errors.h"

#include <vector>

namespace qxmix {

/// What became of one calculation. The order is that of the table in Outcome.cpp.
enum class Outcome {
    NoAnswer,
    Crashed,
    InvalidMixNumber,
    Failed,
    NotDispensable,
    TooManyItems,
    TooManyUnits,
    Overpaid,
    Overdrawn,
    Paid,
    NothingPaid,
    PaidInPart,
};

/// How an outcome is named and shown everywhere: text, JSON, CSV and HTML.
struct OutcomeRow {
    Outcome outcome;
    const char* name;           ///< in JSON
    char letter;                ///< in maps and tables
    const char* words;          ///< for people
    const char* htmlColour;     ///< ground of a cell
    bool whiteLetter;           ///< letter on that ground: white, or else black
    const char* terminalStyle;  ///< parameters of the terminal's colour sequence
    ExitStatus exitStatus;
    int badness;  ///< which of several letters stands for them: the one with the most
};

/// All outcomes, in the order of the enumeration.
const std::vector<OutcomeRow>& OutcomeTable();

const OutcomeRow& RowOf(Outcome outcome);

/// False for a missed deadline and a crash.
inline bool IsAnswered(Outcome outcome) {
    return outcome != Outcome::NoAnswer && outcome != Outcome::Crashed;
}

}  // namespace qxmix
