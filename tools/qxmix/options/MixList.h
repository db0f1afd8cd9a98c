#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace qxmix {

/// Reads mix numbers: "all", "4" or "1,3-5".
///
/// @param option  its name for errors.
/// @return the numbers in order, each once.
/// @throw InputError
std::vector<std::uint16_t> ParseMixList(const std::string& text, const std::string& option);

/// For people: "mix 4", "mixes 1 3 5".
std::string MixesText(const std::vector<std::uint16_t>& mixes);

/// For people: "mix 9", "mixes 6 to 9", "mixes 1 to 3 5".
std::string MixRangesText(const std::vector<std::uint16_t>& mixes);

/// For people: "both mixes", "all 10 mixes".
std::string AllMixesText(std::size_t count);

}  // namespace qxmix
