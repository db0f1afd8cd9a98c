#pragma once

#include "CompareAnswers.h"
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

}  // namespace qxmix
