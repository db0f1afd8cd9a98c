#include "Demand.h"
#include "Lots.h"
#include "text/Dates.h"

#include <algorithm>
#include <random>

namespace qxmix {

Demand DrawDemand(const DemandPattern& pattern, std::uint32_t seed, const std::string& currency) {
    const std::vector<std::uint64_t> hours(pattern.hours.begin(), pattern.hours.end());
    std::vector<std::uint64_t> amounts;
    for (const DemandPattern::Amount& amount : pattern.amounts) {
        amounts.push_back(amount.weight);
    }
    Demand demand;
    demand.currencies = {currency};
    demand.calendar = DemandCalendar(std::nullopt, pattern.days);
    demand.seed = seed;
    demand.withdrawals.reserve(static_cast<std::size_t>(pattern.Size()));
    Lots<std::mt19937_64> lots{std::mt19937_64(seed)};
    for (std::uint32_t day = 0; day < pattern.days; ++day) {
        const auto firstOfDay = static_cast<std::ptrdiff_t>(demand.withdrawals.size());
        for (std::uint32_t count = 0; count < pattern.perDay; ++count) {
            Withdrawal withdrawal;
            const auto hour = static_cast<std::int64_t>(lots.Pick(hours));
            withdrawal.time = day * kSecondsInDay + hour * kSecondsInHour +
                              static_cast<std::int64_t>(lots.Below(kSecondsInHour));
            withdrawal.amount = pattern.amounts[lots.Pick(amounts)].amount;
            demand.withdrawals.push_back(withdrawal);
        }
        std::stable_sort(
            demand.withdrawals.begin() + firstOfDay, demand.withdrawals.end(),
            [](const Withdrawal& left, const Withdrawal& right) { return left.time < right.time; });
    }
    return demand;
}

}  // namespace qxmix
