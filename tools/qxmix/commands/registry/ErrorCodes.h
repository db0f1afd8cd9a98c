#pragma once

#include <string>

namespace qxmix {

/// What an error code in the registry says; "unknown" for one that is not the module's.
std::string ErrorCodeMeaning(const std::string& code);

}  // namespace qxmix
