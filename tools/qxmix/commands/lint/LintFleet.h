#pragma once

#include "LintFleetRow.h"
#include "fleet/Fleet.h"

#include <string>
#include <vector>

namespace qxmix {

/// Many dispensers, and what is wrong with each.
struct LintFleet : Fleet<LintFleetRow> {
    /// Keeps what is known of the next dispenser.
    void Keep(const LintFleetReport& report);
};

/// How many dispensers have nothing worse than this; each is counted once.
struct LintFleetTotals {
    std::size_t notAsked = 0;
    std::size_t withErrors = 0;
    std::size_t withWarnings = 0;
    std::size_t withNotes = 0;
    std::size_t clean = 0;
    std::uint64_t accepted = 0;  ///< findings, not dispensers
};

LintFleetTotals TotalsOf(const LintFleet& fleet);

/// Has workers find out what is wrong with each dispenser.
///
/// @param work  reports one of them, as bytes of a LintFleetReport.
void AskLintFleet(LintFleet& fleet,
                  const std::vector<std::string>& names,
                  const FleetWorkers& workers,
                  const DispenserWork& work);

}  // namespace qxmix
