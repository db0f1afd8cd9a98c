#include "FillCosts.h"

namespace qxmix {

namespace {

constexpr std::uint32_t kDaysAYearAndPercent = 36500;
constexpr int kPercentDecimals = 4;  ///< of a percentage, as it is read
constexpr std::uint32_t kScale = 10000;

/// Times days, days a year, percent and scale, so that nothing is divided.
Money Scaled(const Money& perVisit, const Money& load, std::uint32_t interest, std::uint32_t days) {
    Money all = perVisit.Times(kDaysAYearAndPercent).Times(kScale);
    all += load.Times(interest).Times(days);
    return all;
}

}  // namespace

std::vector<Money> BundleCosts(const Costs& costs, const FillLoading& loading, std::uint32_t days) {
    std::vector<Money> all;
    if (const auto interest = costs.interestPerYear.In(-kPercentDecimals)) {
        for (const LoadedCassette& cassette : loading.Cassettes()) {
            all.push_back(Scaled(costs.bundle, cassette.worth, *interest, days));
        }
    }
    return all;
}

std::optional<Money>
CostPerDay(const Costs& costs, const Money& load, std::uint32_t bundles, std::uint32_t days) {
    const std::optional<std::uint32_t> interest = costs.interestPerYear.In(-kPercentDecimals);
    if (!interest) {
        return std::nullopt;
    }
    Money visit = costs.refill;
    visit += costs.bundle.Times(bundles);
    const Money all = Scaled(visit, load, *interest, days);
    std::uint32_t enough = 0;
    for (std::uint32_t tooMuch = UINT32_MAX; enough + 1 < tooMuch;) {
        const std::uint32_t middle = enough + (tooMuch - enough) / 2;
        const Money sum =
            Money::Of(middle, -2).Times(days).Times(kDaysAYearAndPercent).Times(kScale);
        (sum > all ? tooMuch : enough) = middle;
    }
    return enough + 1 == UINT32_MAX ? std::nullopt : std::make_optional(Money::Of(enough, -2));
}

}  // namespace qxmix
