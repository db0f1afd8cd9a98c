#pragma once

#include "AskOptions.h"
#include "CommonOptions.h"

#include <cstdint>
#include <string>
#include <vector>

namespace qxmix {

/// A word as a shell takes it.
std::string ShellWord(const std::string& word);

/// The mixes as --mixes takes them: "1,4,9".
std::string MixListWord(const std::vector<std::uint16_t>& mixes);

/// The options that decide what a module answers, as they were given: each with a blank before it.
std::string AskingWords(const AskOptions& ask, const CommonOptions& options);

}  // namespace qxmix
