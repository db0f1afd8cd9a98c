#include "FillQuestions.h"

#include "text/Dates.h"

namespace qxmix {

std::uint64_t FillQuestions::WithdrawalCount() const {
    return IsRecorded() ? std::get<Demand>(demand).withdrawals.size()
                        : std::get<DemandPattern>(demand).Size();
}

std::uint32_t FillQuestions::Days() const {
    if (!IsRecorded()) {
        return std::get<DemandPattern>(demand).days;
    }
    const std::vector<Withdrawal>& asked = std::get<Demand>(demand).withdrawals;
    return static_cast<std::uint32_t>(asked.back().time / kSecondsInDay) + 1;
}

RunDemands FillQuestions::Demands() const {
    RunDemands demands;
    if (IsRecorded()) {
        demands.push_back(std::make_shared<const Demand>(std::get<Demand>(demand)));
        return demands;
    }
    for (std::uint32_t run = 0; run < runs; ++run) {
        demands.push_back(std::make_shared<const Demand>(
            DrawDemand(std::get<DemandPattern>(demand), seed + run, dispenser.currency)));
    }
    return demands;
}

}  // namespace qxmix
