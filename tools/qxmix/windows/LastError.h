#pragma once

#include <string>

namespace qxmix {

/// What the system says of the last error of this thread, without a full stop.
std::string LastErrorText();

}  // namespace qxmix
