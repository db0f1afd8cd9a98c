#pragma once

#include "FillLoading.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace qxmix {

/// What a bundle of each cassette adds to the cost of so many days, in a unit that is the same for
/// all of them; none: more than anybody pays.
std::vector<Money> BundleCosts(const Costs& costs, const FillLoading& loading, std::uint32_t days);

/// What a loading costs in a day: the visit and the bundles by the days that it lasts, and the
/// interest on what is loaded, 365 days a year. Rounded down to hundredths; none: more than
/// anybody pays.
///
/// @param load     what is loaded is worth.
/// @param bundles  that are loaded.
/// @param days     until the next refill, not 0.
std::optional<Money>
CostPerDay(const Costs& costs, const Money& load, std::uint32_t bundles, std::uint32_t days);

}  // namespace qxmix
