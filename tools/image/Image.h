#pragma once

#include "ElfFile.h"

namespace image {

/// The directories of an image that stand in sections of their own.
enum class Directory { None, Exports, Imports, Resources, Functions };

/// A section as the device's loader maps it.
struct ImageSection {
    std::string name;
    std::uint32_t rva = 0;   ///< start, relative to the image
    std::uint32_t size = 0;  ///< in memory; what the content does not fill is cleared
    std::uint32_t characteristics = 0;
    Directory directory = Directory::None;
    Bytes content;
};

/// A library of the device, complete but for its headers.
struct Image {
    std::uint32_t base = 0;  ///< address that the words are right for
    std::uint32_t entry = 0;
    std::vector<ImageSection> sections;
    std::vector<std::uint32_t> fixups;  ///< words that move with the image, ascending
};

constexpr std::uint32_t kPageSize = 0x1000;

/// Turns a linked program into an image.
///
/// Its sections bear the names and start at the pages that the linker script gives them; the symbol
/// IMAGE_BASE is its base. Absolute words become fixups, except in the directories, where they
/// become offsets in the image. Throws ImageError for every section, relocation or address that is
/// not understood: an image that is wrong in one word fails on the device, far from here.
Image LayImage(const ElfFile& elf);

}  // namespace image
