#pragma once

#include <string>
#include <vector>

namespace qxmix {

/// The known name that is fewest edits away from a mistyped one (the first of several).
///
/// @return empty when none is near enough to be what was meant.
std::string NearestName(const std::string& name, const std::vector<std::string>& known);

/// `; did you mean "NAME"?`, or else the known names; follows "unknown ...".
std::string DidYouMean(const std::string& name, const std::vector<std::string>& known);

}  // namespace qxmix
