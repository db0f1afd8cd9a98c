#pragma once

#include "PeFile.h"

namespace emulation {

/// A library and a host that is linked to it, as the loader leaves them: in one address space, the
/// host behind the library, and what the host takes from the library bound to it.
///
/// @param file  the library's name as the host's imports have it; a function that it does not
/// export
///   throws std::out_of_range.
PeFile JoinedImage(const PeFile& library, const std::string& file, const PeFile& host);

}  // namespace emulation
