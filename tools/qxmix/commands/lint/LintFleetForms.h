#pragma once

#include "LintFleet.h"
#include "answers/Envelope.h"
#include "terminal/Terminal.h"

#include <functional>
#include <string>

namespace qxmix {

/// Takes a form of an answer part by part.
using TakePart = std::function<void(const std::string& part)>;

/// Many dispensers for people: a verdict over all, and a row each, the worst first.
///
/// @param hasAll  whether all that was found follows, a dispenser after the other.
void WriteFleetText(const LintFleet& fleet,
                    bool hasAll,
                    const Painter& painter,
                    const TakePart& take);

/// The envelope with a result for each dispenser, in the order in which they were named.
void WriteFleetJson(const LintFleet& fleet, const Envelope& envelope, const TakePart& take);

}  // namespace qxmix
