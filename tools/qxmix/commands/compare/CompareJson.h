#pragma once

#include "CompareAnswers.h"
#include "json/JsonName.h"

namespace qxmix {

/// What was compared, defaults filled in.
Json CompareInputJson(const CompareQuestions& questions);

/// The result of a comparison.
Json CompareResultJson(const CompareQuestions& questions, const CompareAnswers& answers);

}  // namespace qxmix
