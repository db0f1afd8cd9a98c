#pragma once

#include "FillOutcome.h"
#include "FillSearch.h"

#include <functional>
#include <vector>

namespace qxmix {

/// How a loading serves of which all runs are known, and none is dangerous.
struct FillPoint {
    Bundles bundles;
    Money worth;
    ServedShare median;
    ServedShare worst;
    ServedShare promised;  ///< what so many runs reach as have to
};

FillPoint PointOf(const Bundles& bundles, const FillOutcome& outcome);

/// The points of which none serves as much for less money, by money. That of the proposed loading
/// is among them, in the place of others for as much money.
std::vector<FillPoint> BestPoints(std::vector<FillPoint> points, const Bundles& proposed);

/// Goes down from a loading to half of its money, by a sixteenth of it after the other: of the
/// cassettes that could give it, the one without which most customers are served.
///
/// @param worth  of a loading.
/// @param ask    asks the module about all runs of a loading; none: it is dangerous.
/// @return all points that were asked.
std::vector<FillPoint>
PointsBelow(const Bundles& proposed,
            const std::function<Money(const Bundles&)>& worth,
            const std::function<std::optional<FillPoint>(const Bundles&)>& ask);

}  // namespace qxmix
