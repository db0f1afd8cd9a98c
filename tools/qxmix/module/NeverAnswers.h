#pragma once

#include "Records.h"

#include <cstdint>

namespace qxmix {

/// Calls that the module would never answer, as its own operations decide it: nobody needs to make
/// them.
///
/// @param minimum  most items of a unit that mixes 6 to 9 pass over.
/// @return false also where only the call can tell: no answer may come there either.
bool NeverAnswers(const MixRequest& request, std::uint32_t minimum);

/// Leaves in this process's registry what such a call leaves there for ever, and lets its trace
/// lines be heard.
void LeaveAsEndlessCall(const MixRequest& request, std::uint32_t minimum);

}  // namespace qxmix
