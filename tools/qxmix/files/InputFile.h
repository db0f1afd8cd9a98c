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

/// Larger than any input of the tool that is read whole.
constexpr std::size_t kLargestInput = std::size_t{256} << 20U;

/// Reads a file, or standard input for "-".
///
/// @param mostBytes  a whole number of MiB.
/// @throw InputError when it cannot be read or is larger.
InputFile ReadInput(const std::string& name, std::size_t mostBytes = kLargestInput);

}  // namespace qxmix
