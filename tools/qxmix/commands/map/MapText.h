#pragma once

#include "MapAnswers.h"
#include "findings/Findings.h"
#include "terminal/Terminal.h"

#include <string>
#include <vector>

namespace qxmix {

/// The map for people: the verdict, the amounts that are not paid, a row of letters for each mix,
/// and what the letters say. Of more than 60 amounts a letter stands for a stretch, and is the
/// worst of it.
///
/// @param differences  see MapDifferences.h; they come last.
std::string MapText(const MapQuestions& questions,
                    const MapAnswers& answers,
                    const std::vector<Finding>& differences,
                    const Painter& painter);

}  // namespace qxmix
