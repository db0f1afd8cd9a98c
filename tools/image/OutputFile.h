#pragma once

#include "Bytes.h"

namespace image {

/// Reads a file whole. Throws ImageError that names it.
Bytes ReadFile(const std::string& path);

/// Writes a file whole or not at all: beside its place first, then renamed. Throws ImageError that
/// names it and leaves what was there.
void WriteFile(const std::string& path, const Bytes& content);

}  // namespace image
