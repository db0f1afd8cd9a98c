#pragma once

#include "Failure.h"
#include "ResultCodes.h"
#include "SearchUnits.h"

/// Pays from the only unit of a table: the whole amount, or with a partial amount allowed what the
/// unit can pay of it, even nothing. Equal notes, equal emptying and first-fit emptying share it.
///
/// @return 0, or kNotDispensable after recording "971A2"; over the limit too, where that code
///   overwrites the limit's own.
inline std::int32_t PayFromSingleUnit(const SearchUnits& units, LcuNotes& notes) noexcept {
    Counts combination{};
    const std::uint32_t unpaid = TakeGreedily(units, combination);
    const bool suffices = unpaid == 0 || units.allowsPartial;
    if (!suffices || !units.IsWithinLimit(combination)) {
        return Fail(Failure::NotDispensable);
    }
    StoreNotes(units, combination, notes);
    return kSuccess;
}
