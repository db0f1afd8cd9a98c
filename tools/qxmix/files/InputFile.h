#pragma once

#include <string>

namespace qxmix {

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
