#pragma once

#include <sys/types.h>

namespace qxmix {

/// What the system calls the tool's end of a channel, and a process.
using ChannelEnd = int;
using ProcessHandle = pid_t;

constexpr ChannelEnd kNoChannelEnd = -1;
constexpr ChannelEnd kStandardInput = 0;
constexpr ProcessHandle kNoProcess = -1;

}  // namespace qxmix
