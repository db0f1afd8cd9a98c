#pragma once

#include <string>

namespace property {

/// Removes the value in which the module records the code of a failure.
void ClearErrorCode();

/// Code recorded since it was cleared; empty when none was.
std::string RecordedErrorCode();

}  // namespace property
