#pragma once

#include "Collation.h"

#include <iosfwd>

namespace bench {

/// Writes the rows as one table: median, maximum, ratio to the reference and to each peer.
void WriteTable(const Collation& collation, std::ostream& out);

/// Writes the growth curves: curve,at,algorithm,contestant,median_ns,maximum_ns.
///
/// A reference that ran out of steps for any question of a point has no line for it.
void WriteCurves(const Collation& collation, std::ostream& out);

}  // namespace bench
