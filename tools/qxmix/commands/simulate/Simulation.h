#pragma once

#include "Draining.h"
#include "answers/Outcome.h"
#include "demand/Demand.h"
#include "workers/AdaptiveDeadline.h"

#include <cstdint>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

namespace qxmix {

/// What became of one withdrawal.
struct SimulationStep {
    Outcome outcome = Outcome::NoAnswer;
    bool isProved = false;  ///< NoAnswer: none will ever come
    CassetteItems items{};  ///< as answered; 0 where the answer was a refusal or none

    /// Whether the items left the machine; dangerous answers are never carried out.
    bool IsTaken() const { return outcome == Outcome::Paid || outcome == Outcome::PaidInPart; }

    bool operator<(const SimulationStep& other) const {
        return std::tie(outcome, items) < std::tie(other.outcome, other.items);
    }
};

/// One dispenser that is asked by one mix for one withdrawal after the other, and drains.
class Simulation {
public:
    Simulation(Dispenser dispenser, std::shared_ptr<const Demand> demand, std::uint16_t mix);

    const Demand& Asked() const { return *demand_; }

    /// Whether all withdrawals were asked, or the mix was given up.
    bool IsOver() const { return steps_.size() == demand_->withdrawals.size() || IsGivenUp(); }

    bool IsGivenUp() const { return misses_ >= kMissesToGiveUp; }

    /// What to ask next; not when it is over.
    MixRequest NextRequest() const;

    /// Takes the answer to that.
    void Take(const Reply& reply);

    const std::vector<SimulationStep>& Steps() const { return steps_; }

    /// Error code that was left last; empty: none.
    const std::string& LastCode() const { return lastCode_; }

private:
    Dispenser dispenser_;  // as it is now; asked in the currency of the next withdrawal
    std::shared_ptr<const Demand> demand_;
    std::uint16_t mix_;
    std::vector<SimulationStep> steps_;
    std::size_t misses_ = 0;
    std::string lastCode_;
};

}  // namespace qxmix
