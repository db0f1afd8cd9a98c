#pragma once

#include "SimulationReport.h"
#include "fleet/Fleet.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace qxmix {

/// What one mix did for one dispenser of many.
struct ServedByMix {
    std::uint16_t mix = 0;
    bool isRanked = false;     ///< false: dangerous there
    std::uint64_t served = 0;  ///< withdrawals; of several runs the median
};

/// What is kept of a dispenser of many while the others are simulated.
struct SimulationFleetRow {
    std::string file;
    ExitStatus status = ExitStatus::Well;
    bool isAsked = false;  ///< false: it could not be read, or not be asked
    std::uint64_t withdrawals = 0;
    std::vector<ServedByMix> mixes;  ///< the best first, as a simulation ranks them
    std::string told;                ///< the first refusal by the best mix, or what is wrong
    Spool::Part json;                ///< its element of the result
    Spool::Part text;                ///< all of it for people; empty unless it was asked for

    /// The mix that serves most; none: all are dangerous.
    const ServedByMix* Best() const;

    const ServedByMix* Of(std::uint16_t mix) const;
};

/// What a worker reports of a dispenser: the row, and the texts to be put away.
struct SimulationFleetReport {
    SimulationFleetRow row;
    std::string json;
    std::string text;
};

SimulationFleetReport SimulationReportOf(const std::string& file, const SimulationReport& report);
SimulationFleetReport SimulationReportOf(const std::string& file, const ToolError& error);

std::string ToBytes(const SimulationFleetReport& report);

/// One mix for all dispensers.
struct FleetMix {
    std::uint16_t mix = 0;
    std::uint64_t served = 0;     ///< over all dispensers
    std::size_t dangerousOn = 0;  ///< dispensers
};

/// Many dispensers, and how each of them fares.
struct SimulationFleet : Fleet<SimulationFleetRow> {
    /// The mixes by what they serve over all dispensers, the best first; behind them those that are
    /// dangerous on any. None when no dispenser could be asked.
    std::vector<FleetMix> Mixes() const;

    /// The one that serves most over all dispensers; none: each is dangerous on some.
    std::optional<std::uint16_t> BestMix() const;

    std::uint64_t Withdrawals() const;

    /// What is served when each dispenser has its own best mix.
    std::uint64_t ServedByBest() const;
};

/// How many withdrawals fewer a dispenser serves with a mix than with its best one.
std::uint64_t LostBy(const SimulationFleetRow& row, std::uint16_t mix);

/// Has workers simulate each dispenser.
///
/// @param work  reports one of them, as bytes of a SimulationFleetReport.
void SimulateFleet(SimulationFleet& fleet,
                   const std::vector<std::string>& names,
                   const FleetWorkers& workers,
                   const DispenserWork& work);

}  // namespace qxmix
