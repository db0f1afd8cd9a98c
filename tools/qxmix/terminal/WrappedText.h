#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace qxmix {

/// Lines of at most 80 columns that break only where a separator ends a part.
///
/// @param used    columns before the first part.
/// @param indent  columns before every other line.
std::string WrappedText(const std::vector<std::string>& parts,
                        const std::string& separator,
                        std::size_t used,
                        std::size_t indent);

}  // namespace qxmix
