#pragma once

#include "FewestItems.h"
#include "Questions.h"

namespace bench {

/// The textbook way to minimum notes: for each amount in turn the fewest items that make it, unit
/// by unit, with no more items of a unit than it holds.
///
/// Time grows with amount times units, whatever the counts are. All amounts are first divided by
/// what divides all values.
FewestItems FewestItemsByTable(const Question& question);

}  // namespace bench
