#pragma once

#include "MapQuestions.h"
#include "files/OutputForm.h"

#include <cstdint>
#include <optional>
#include <string>

namespace qxmix {

/// The form that a file's name asks for.
///
/// @param file  empty: none.
/// @throw InputError when the name asks for no form, or for one that cannot hold so much.
std::optional<OutputForm> MapFormOf(const std::string& file, const MapQuestions& questions);

/// Refuses maps that are too large, and says which step would do.
///
/// @param most    cells.
/// @param option  that the error is about.
/// @throw InputError
void CheckCellCount(const MapQuestions& questions, std::uint64_t most, const std::string& option);

}  // namespace qxmix
