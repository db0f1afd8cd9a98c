#pragma once

#include <cstdint>

namespace arm {

/// Loads a library file of the device as its system does: maps the sections, applies the fixups,
/// binds the imports to FindFunction. Ends the program when anything is not as expected.
///
/// @return where the image lies.
unsigned char* LoadLibraryFile(const char* path) noexcept;

/// Address of an exported function or of the entry point.
void* FindExport(unsigned char* image, const char* name) noexcept;
void* EntryPoint(unsigned char* image) noexcept;

}  // namespace arm
