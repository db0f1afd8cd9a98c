#pragma once

#include "Image.h"

namespace image {

/// The list of fixups as the loader reads it: a block per page that has any.
Bytes EncodeFixups(const std::vector<std::uint32_t>& fixups);

/// The file of a library for Windows CE on ARM: headers, sections, fixups. The same image always
/// gives the same bytes; no time and no name of a path is in it.
Bytes EncodeImage(const Image& image);

}  // namespace image
