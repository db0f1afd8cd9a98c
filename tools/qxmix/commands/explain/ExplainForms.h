#pragma once

#include "Explanation.h"
#include "json/JsonName.h"
#include "terminal/Terminal.h"

#include <string>

namespace qxmix {

/// The story for people: the answer, the units, the steps up to the one that decided, and what is
/// paid instead. Without the findings.
std::string
ExplainText(const MixQuestions& questions, const Explanation& story, const Painter& painter);

/// The units in one table: which cassettes, what they count as, and whether they are used.
std::string
UnitsText(const MixQuestions& questions, const Explanation& story, const Painter& painter);

/// A line for each step of the calculation, up to the one that decided.
std::string StepsText(const MixQuestions& questions, const Explanation& story);

/// The result of `mix`, and beside it the story.
Json ExplainJson(const MixQuestions& questions, const Explanation& story);

}  // namespace qxmix
