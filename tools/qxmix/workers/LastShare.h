#pragma once

namespace qxmix {

/// A deadline counts processor time, so that a busy machine does not make misses; so many times as
/// long has to do in any case.
constexpr int kLastShare = 10;

}  // namespace qxmix
