#pragma once

#include "demand/Demand.h"
#include "dispenser/Dispenser.h"
#include "workers/Worker.h"

#include <cstdint>
#include <variant>
#include <vector>

namespace qxmix {

/// The same withdrawals, asked of a dispenser that drains, by one or more mixes.
struct SimulationQuestions {
    Dispenser dispenser;
    std::vector<std::uint16_t> mixes;  ///< in order, each once
    std::variant<DemandPattern, Demand> demand;
    std::uint32_t seed = 1;  ///< of the first run; each further run has the next one
    std::uint32_t runs = 1;  ///< 1 for a recorded demand
    Milliseconds deadline{100};
    std::size_t jobs = 1;  ///< workers side by side

    bool IsRecorded() const { return std::holds_alternative<Demand>(demand); }

    std::uint64_t WithdrawalCount() const {
        return IsRecorded() ? std::get<Demand>(demand).withdrawals.size()
                            : std::get<DemandPattern>(demand).Size();
    }

    /// How recorded withdrawals were read.
    std::vector<Finding> Notes() const {
        return IsRecorded() ? std::get<Demand>(demand).notes : std::vector<Finding>();
    }

    std::uint64_t CalculationCount() const { return WithdrawalCount() * mixes.size() * runs; }

    /// The demand of one run, counted from 0.
    Demand DemandOf(std::uint32_t run) const {
        return IsRecorded()
                   ? std::get<Demand>(demand)
                   : DrawDemand(std::get<DemandPattern>(demand), seed + run, dispenser.currency);
    }
};

}  // namespace qxmix
