#pragma once

#include "JsonName.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace qxmix {

/// A long list of places in a short list, as an answer holds it: "digits", how many each place
/// has, and "path", the digits of base 64 one behind the other.
///
/// @param path   each below `count`.
/// @param count  length of the short list.
Json StepPathJson(const std::vector<std::uint32_t>& path, std::size_t count);

}  // namespace qxmix
