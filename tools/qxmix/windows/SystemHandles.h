#pragma once

namespace qxmix {

/// What the system calls the tool's end of a channel, and a process: handles.
using ChannelEnd = void*;
using ProcessHandle = void*;

constexpr ChannelEnd kNoChannelEnd = nullptr;
constexpr ProcessHandle kNoProcess = nullptr;

}  // namespace qxmix
