#pragma once

#include "LintFleetRow.h"
#include "fleet/AskFleet.h"

#include <string>
#include <vector>

namespace qxmix {

/// Many dispensers, and what is known of each: little in memory, the rest put away.
struct LintFleet {
    std::vector<LintFleetRow> rows;  ///< in the order in which they were named
    std::size_t named = 0;           ///< dispensers named; more than rows after Ctrl-C
    bool isComplete = true;          ///< false: Ctrl-C came before the end
    Spool spool;

    /// Keeps what is known of the next dispenser.
    void Keep(const LintFleetReport& report);

    /// The highest of all dispensers.
    ExitStatus Status() const;
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
                  const OpenOrder& order,
                  std::size_t jobs,
                  const ProgressListener& listen,
                  const DispenserWork& work);

}  // namespace qxmix
