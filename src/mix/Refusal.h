#pragma once

#include "CMixAlgorithm.h"
#include "SearchUnits.h"

/// The last combination of a search that was over the limit. A search that then succeeds with
/// another one leaves its code in the registry; the codes of earlier ones are overwritten anyway.
struct Refusal {
    bool isThere = false;
    Counts combination{};

    void Remember(const Counts& refused) noexcept {
        combination = refused;
        isThere = true;
    }

    /// Records the code, if a combination was refused.
    void Record(const MixRequest& request,
                const LcuTable& table,
                const SearchUnits& units) const noexcept {
        if (isThere) {
            LcuNotes notes{};
            StoreNotes(units, combination, notes);
            CMixAlgorithm::CheckMaximumDispense(request, table, notes);
        }
    }
};
