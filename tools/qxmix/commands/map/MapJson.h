#pragma once

#include "MapAnswers.h"
#include "json/JsonName.h"

#include <string>

namespace qxmix {

/// What was asked, as the envelope holds it.
Json MapInputJson(const MapQuestions& questions);

/// The map as the result of the envelope: the letters as runs, and every answer as one of a few
/// steps from the answer before it (schema/answer.schema.json).
Json MapResultJson(const MapQuestions& questions, const MapAnswers& answers);

/// Dangerous amounts that are listed one by one for each mix; the runs have all of them.
constexpr std::size_t kListedDangers = 100;

}  // namespace qxmix
