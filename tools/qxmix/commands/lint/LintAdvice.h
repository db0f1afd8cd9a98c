#pragma once

#include "LintCase.h"
#include "json/JsonName.h"

#include <string>

namespace qxmix {

/// Cures for people, the cheapest first: "mixes 2 3 pay them; or load 10 EUR: ...". Empty without
/// any.
std::string CuresText(const LintCase& lint, const LintCures& cures);

/// The same, an object each.
Json CuresJson(const LintCures& cures);

}  // namespace qxmix
