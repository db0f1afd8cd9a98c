#pragma once

#include "MapQuestions.h"
#include "json/JsonName.h"

namespace qxmix {

/// The amounts asked as the input of an answer has them: from, to and step.
Json RangeJson(const MapQuestions& questions);

/// The same of a dispenser that is asked in several currencies, with the currency.
Json RangeOfCurrencyJson(const MapQuestions& questions);

}  // namespace qxmix
