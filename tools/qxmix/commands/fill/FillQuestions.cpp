#include "FillQuestions.h"

namespace qxmix {

RunDemands FillQuestions::Demands() const {
    RunDemands demands;
    for (std::uint32_t run = 0; run < runs; ++run) {
        demands.push_back(
            std::make_shared<const Demand>(DemandOf(demand, seed + run, dispenser.currency)));
    }
    return demands;
}

}  // namespace qxmix
