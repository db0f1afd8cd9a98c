#pragma once

#include "MapAnswers.h"

#include <string>

namespace qxmix {

/// The map as CSV: a line for each amount and mix, the amounts in order. What a missing answer
/// leaves unknown is empty.
std::string MapCsv(const MapQuestions& questions, const MapAnswers& answers);

}  // namespace qxmix
