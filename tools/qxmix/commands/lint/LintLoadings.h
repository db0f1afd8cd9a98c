#pragma once

#include "LintCase.h"

#include <cstdint>
#include <vector>

namespace qxmix {

/// Items of a cassette that is tried full.
constexpr std::uint32_t kFullCassette = 2000;

/// Changes of single cassettes that might make a mix pay more, what is easiest first: cassettes
/// brought into service, filled, added, and put in the place of one that is not missed.
///
/// @param most  largest amount that is to be paid.
std::vector<Loading> LoadingsToTry(const LintCase& lint, const LintMix& mix, std::uint32_t most);

}  // namespace qxmix
