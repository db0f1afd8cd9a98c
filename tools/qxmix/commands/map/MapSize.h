#pragma once

#include "MapQuestions.h"
#include "files/OutputForm.h"

#include <cstdint>
#include <optional>
#include <string>

namespace qxmix {

/// Refuses maps that are too large, and says which step would do.
///
/// @param most    cells.
/// @param option  that the error is about.
/// @throw InputError
void CheckCellCount(const MapQuestions& questions, std::uint64_t most, const std::string& option);

/// Refuses a map that a file of this form cannot hold.
///
/// @throw InputError
void CheckFormHolds(const std::optional<OutputForm>& form, const MapQuestions& questions);

}  // namespace qxmix
