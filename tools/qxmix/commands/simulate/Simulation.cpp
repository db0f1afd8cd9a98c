#include "Simulation.h"

#include "answers/Judgement.h"
#include "requests/Request.h"

#include <utility>

namespace qxmix {

Simulation::Simulation(Dispenser dispenser, std::shared_ptr<const Demand> demand, std::uint16_t mix)
    : dispenser_(std::move(dispenser)), demand_(std::move(demand)), mix_(mix) {
}

MixRequest Simulation::NextRequest() const {
    const Withdrawal& next = demand_->withdrawals[steps_.size()];
    MixRequest request = BuildRequest(dispenser_, next.amount, mix_);
    SetCurrency(request, demand_->currencies[next.currency]);
    return request;
}

void Simulation::Take(const Reply& reply) {
    const Withdrawal& asked = demand_->withdrawals[steps_.size()];
    const Judgement judgement = Judge(dispenser_, asked.amount, reply);
    SimulationStep step;
    step.outcome = judgement.outcome;
    step.isProved = judgement.isProved;
    if (step.IsTaken() || judgement.IsDangerous()) {
        step.items = judgement.taken;
    }
    if (step.IsTaken()) {
        TakeItems(dispenser_, step.items);
    }
    misses_ += step.outcome == Outcome::NoAnswer && !step.isProved ? 1U : 0U;
    if (reply.ending.LeavesWorker() && !reply.calculation.written.empty()) {
        lastCode_ = reply.calculation.written;
    }
    steps_.push_back(step);
}

}  // namespace qxmix
