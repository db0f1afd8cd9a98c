#pragma once

#include "SimulationSummary.h"
#include "workers/Worker.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace qxmix {

/// One dispenser that is asked by one mix for one withdrawal after the other, and drains.
class Simulation {
public:
    /// @param dispenser  as it is before the withdrawal `first`.
    /// @param first      withdrawals that are behind it already.
    Simulation(const Dispenser& dispenser,
               std::shared_ptr<const Demand> demand,
               std::uint16_t mix,
               std::size_t first = 0);

    /// Whether all withdrawals were asked, or the mix was given up.
    bool IsOver() const { return Done() == demand_->withdrawals.size() || draining_.IsGivenUp(); }

    /// Withdrawals that are behind it.
    std::size_t Done() const { return first_ + steps_.size(); }

    /// What to ask next; not when it is over.
    MixRequest NextRequest() const;

    /// Takes the answer to that.
    void Take(const Reply& reply);

    /// Takes what became of the next withdrawal where somebody else has judged the answer.
    ///
    /// @param code  error code that was left; empty: none.
    void Take(const SimulationStep& step, const std::string& code);

    /// The dispenser as it is now.
    const Dispenser& Now() const { return draining_.Now(); }

    const std::vector<SimulationStep>& Steps() const { return steps_; }

    SimulationSummary Summary() const { return draining_.Summary(); }

    /// Error code that was left last; empty: none.
    const std::string& LastCode() const { return lastCode_; }

private:
    void Add(const SimulationStep& step, const Money& worth, const std::string& code);

    DrainedDispenser draining_;  // asked in the currency of the next withdrawal
    std::shared_ptr<const Demand> demand_;
    std::uint16_t mix_;
    std::size_t first_;
    std::vector<SimulationStep> steps_;
    std::string lastCode_;
};

}  // namespace qxmix
