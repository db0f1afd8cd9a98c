#pragma once

#include <string>

namespace qxmix {

/// Opens a shared library; it stays open until the process ends.
///
/// @return the library, for FindExport; never null.
/// @throw WorkError "NAME: why it cannot be used".
void* OpenSharedLibrary(const std::string& file);

/// The address of an exported function; null when there is none of that name.
void* FindExport(void* library, const char* name);

/// Version that the file itself states; empty when it states none.
std::string StatedVersion(const std::string& file);

}  // namespace qxmix
