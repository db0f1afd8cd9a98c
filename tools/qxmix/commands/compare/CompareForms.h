#pragma once

#include "CompareAnswers.h"
#include "json/JsonName.h"
#include "terminal/Terminal.h"

#include <array>
#include <string>

namespace qxmix {

/// What changes for whom, for people.
///
/// @param names  of the two sides, as headings.
std::string CompareText(const CompareQuestions& questions,
                        const CompareAnswers& answers,
                        const std::array<std::string, 2>& names,
                        const Painter& painter);

/// The differences as CSV, worst first: what changes, then outcome and items by slot on either
/// side.
std::string CompareCsv(const CompareAnswers& answers);

/// What was compared, defaults filled in.
Json CompareInputJson(const CompareQuestions& questions);

/// The result of a comparison.
Json CompareResultJson(const CompareQuestions& questions, const CompareAnswers& answers);

}  // namespace qxmix
