#pragma once

#include <string>
#include <vector>

namespace qxmix {

/// The name of the library's file; as a bare name for the system's own search.
extern const char* const kLibraryFile;

/// Where the library may be when nobody names it, the best place first.
std::vector<std::string> LibraryPlaces();

}  // namespace qxmix
