#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "../reference/Reference.h"

namespace property {

/// Calls visit with every small table: one to five units of different values, counts 0 to 3, once
/// with bank notes only and once with every second unit coins.
///
/// @param every  1 for all tables, n for each n-th.
/// The units come in no particular order of values: ascending, as they stand in the grid.
void ForEachSmallTable(std::uint64_t every,
                       const std::function<void(const std::vector<reference::Unit>&)>& visit);

}  // namespace property
