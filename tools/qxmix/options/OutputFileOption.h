#pragma once

#include "Parser.h"

#include <string>

namespace qxmix {

/// Adds an option that names a file to write.
///
/// Standard output is the answer's in every command, so "-" is refused.
///
/// @param file  takes the name.
void AddOutputFileOption(CLI::App& command,
                         const std::string& name,
                         std::string& file,
                         const std::string& help);

}  // namespace qxmix
