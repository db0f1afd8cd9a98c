#pragma once

#include <string>

namespace property {

/// Takes the code that the module has recorded since the last time out of the registry.
///
/// @return the bytes of the value "CDM"; empty when there is none.
std::string TakeErrorCode();

}  // namespace property
