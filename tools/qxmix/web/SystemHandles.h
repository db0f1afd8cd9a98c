#pragma once

namespace qxmix {

class InPlaceWorker;

/// A page has no child processes: a worker is an object, and its orders are calls.
using ChannelEnd = InPlaceWorker*;
using ProcessHandle = InPlaceWorker*;

constexpr ChannelEnd kNoChannelEnd = nullptr;
constexpr ProcessHandle kNoProcess = nullptr;

}  // namespace qxmix
