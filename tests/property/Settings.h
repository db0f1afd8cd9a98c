#pragma once

#include <cstdint>

namespace property {

/// Number in an environment variable, or the default when the variable is missing or no number.
///
/// QXMIX_SEED   seed of the random requests
/// QXMIX_CASES  random requests in all
/// QXMIX_EACH   random requests of each kind, instead of a share of all
/// QXMIX_STEPS  after how many steps of the reference a random request is given up
/// QXMIX_WORDS  tables searched in words of 8 bits; fewer of more bits
/// QXMIX_FULL   1: every small table instead of a part of them
std::uint64_t Setting(const char* name, std::uint64_t byDefault);

}  // namespace property
