#include "Simulation.h"

#include "answers/Answer.h"
#include "requests/Request.h"

#include <utility>

namespace qxmix {

Simulation::Simulation(const Dispenser& dispenser,
                       std::shared_ptr<const Demand> demand,
                       std::uint16_t mix,
                       std::size_t first)
    : draining_(dispenser), demand_(std::move(demand)), mix_(mix), first_(first) {
}

MixRequest Simulation::NextRequest() const {
    const Withdrawal& next = demand_->withdrawals[Done()];
    MixRequest request = BuildRequest(draining_.Now(), next.amount, mix_);
    SetCurrency(request, demand_->currencies[next.currency]);
    return request;
}

void Simulation::Take(const Reply& reply) {
    const Withdrawal& asked = demand_->withdrawals[Done()];
    const Answer answer = Judge(draining_.Now(), {asked.amount, mix_}, reply);
    SimulationStep step;
    step.outcome = answer.outcome;
    step.isProved = answer.isProved;
    if (step.IsTaken() || answer.IsDangerous()) {
        step.items = answer.taken;
    }
    Add(step, answer.paid, answer.code);
}

void Simulation::Take(const SimulationStep& step, const std::string& code) {
    Add(step, WorthOf(draining_.Now(), step.items), code);
}

void Simulation::Add(const SimulationStep& step, const Money& worth, const std::string& code) {
    draining_.Add(demand_->withdrawals[Done()], step, worth);
    lastCode_ = code.empty() ? lastCode_ : code;
    steps_.push_back(step);
}

}  // namespace qxmix
