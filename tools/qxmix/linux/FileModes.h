#pragma once

#include <sys/types.h>

namespace qxmix {

/// Of files that the tool makes: what the user's mask leaves of this, or for the owner alone until
/// a file takes over the mode of what was there.
constexpr mode_t kUsualMode = 0666;
constexpr mode_t kOwnersMode = 0600;

}  // namespace qxmix
