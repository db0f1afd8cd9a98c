#pragma once

#include "Refusal.h"
#include "SearchUnits.h"

/// What the loops of first-fit emptying would come to.
struct FirstFitDecision {
    enum class Ending {
        Found,    ///< `found` is the answer
        Failed,   ///< two units: the loops end without one
        Never,    ///< they run for ever
        Unknown,  ///< counts or values are so large that only the loops themselves can tell
    };

    Ending ending;
    Counts found;
    Refusal refusal;  ///< Found: the last combination over the limit before it; Never: of all
};

/// Decides a search over two to five units of values other than 0 without running its loops.
FirstFitDecision DecideFirstFit(const SearchUnits& units) noexcept;
