#pragma once

#include "Records.h"

#include <cstdint>

namespace qxmix {

/// How a call of the module would end, as its own operations decide it without the call.
enum class CallEnding : std::uint8_t {
    Ends,
    Never,
    Unknown,  ///< only the call can tell
};

/// @param minimum  most items of a unit that mixes 6 to 9 pass over.
CallEnding DecideEnding(const MixRequest& request, std::uint32_t minimum);

/// Calls that the module would never answer: nobody needs to make them.
///
/// @return false also where only the call can tell: no answer may come there either.
bool NeverAnswers(const MixRequest& request, std::uint32_t minimum);

/// Leaves in this process's registry what such a call leaves there for ever, and lets its trace
/// lines be heard.
void LeaveAsEndlessCall(const MixRequest& request, std::uint32_t minimum);

}  // namespace qxmix
