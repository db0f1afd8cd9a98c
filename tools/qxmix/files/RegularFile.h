#pragma once

#include <cstddef>
#include <string>

namespace qxmix {

/// Reads a file that a stranger may have named: one that is no regular file is refused before it is
/// waited for.
///
/// @param mostBytes  of the file.
/// @throw InputError
std::string ReadRegularFile(const std::string& name, std::size_t mostBytes);

}  // namespace qxmix
