#pragma once

#include "MapAnswers.h"
#include "MapQuestions.h"
#include "answers/OwnDecisions.h"
#include "findings/Findings.h"

#include <functional>
#include <vector>

namespace qxmix {

using HearDifference = std::function<void(std::uint32_t amount, LibraryDifference difference)>;

/// Goes through the answers of a mix and tells of those that the tool's own module decides
/// otherwise.
///
/// @throw Interruption after Ctrl-C.
void FindDifferences(const MapQuestions& questions,
                     std::uint16_t mix,
                     const MapRow& row,
                     OwnDecisions& decisions,
                     const HearDifference& hear);

/// A finding for each mix that has such answers, and each way in which they differ. Ctrl-C ends the
/// search for them.
std::vector<Finding>
DifferencesOf(const MapQuestions& questions, MapAnswers& answers, OwnDecisions& decisions);

}  // namespace qxmix
