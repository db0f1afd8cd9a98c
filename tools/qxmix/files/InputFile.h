#pragma once

#include <cstddef>
#include <string>

namespace qxmix {

/// Longest line of an input that is read line by line, in bytes.
constexpr std::size_t kLongestLine = std::size_t{1} << 20U;

/// An input read whole.
struct InputFile {
    std::string name;  ///< as it stands in errors
    std::string content;
};

/// Reads a file, or standard input for "-".
///
/// @throw InputError when it cannot be read or is larger than any input of the tool.
InputFile ReadInput(const std::string& name);

}  // namespace qxmix
