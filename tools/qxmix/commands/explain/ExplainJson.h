#pragma once

#include "Explanation.h"
#include "json/JsonName.h"

namespace qxmix {

/// The result of `mix`, and beside it the story.
Json ExplainJson(const MixQuestions& questions, const Explanation& story);

}  // namespace qxmix
