#pragma once

#include <string>

namespace qxmix {

/// The library's file, by order: the one named on the command line, QXMIX_LIBRARY, beside the tool,
/// the installed place, and last the system's own search.
///
/// @param named  --library; empty: not given.
/// @throw WorkError when a named file is not there.
std::string FindLibrary(const std::string& named);

/// Whether a library is the one that the tool finds by itself when none is named: the module whose
/// operations are a part of it.
bool IsOwnLibrary(const std::string& file);

/// The last part of a file name: what answers call the library.
std::string FileNameOf(const std::string& path);

}  // namespace qxmix
