#pragma once

#include "CompareAnswers.h"

#include <string>

namespace qxmix {

/// The differences as CSV, worst first: what changes, then outcome and items by slot on either
/// side.
std::string CompareCsv(const CompareAnswers& answers);

}  // namespace qxmix
