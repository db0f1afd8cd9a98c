#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace qxmix {

/// Makes lines that know their number, by how many the file has already.
using LinesBehind = std::function<std::string(std::uint64_t linesThere)>;

/// Appends lines to a file in one piece; nobody else who appends in this way comes between the
/// counting and the writing. A last line that nothing ends is ended first. Devices and pipes have
/// no lines to go on from: reading them would not end.
///
/// @throw WorkError when it cannot be written; the file is then as it was, or empty where there was
/// none.
void AppendLines(const std::string& file, const LinesBehind& lines);

}  // namespace qxmix
