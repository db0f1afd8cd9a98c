#pragma once

#include "Channel.h"

#include <vector>

namespace qxmix {

/// Waits until one of these ends has something to read, or for no longer than the time given; may
/// return earlier.
///
/// @param until  time_point::max(): there is no end.
/// @return for each end whether it has something to read, or was closed by whoever is there.
/// @throw Interruption when Ctrl-C was pressed.
std::vector<bool> WaitForOneOf(const std::vector<ChannelEnd>& ends, Clock::time_point until);

}  // namespace qxmix
