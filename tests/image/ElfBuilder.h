#pragma once

#include "Bytes.h"

#include <elf.h>

namespace image {

/// Puts together the file of a small linked program, well-formed unless a test damages it.
///
/// It has code of two words at 0x10001000, an import directory of one word at 0x10002000, the
/// symbol IMAGE_BASE, and one relocation: the second word of the code is the address of the first.
struct ElfBuilder {
    static constexpr std::uint32_t kBase = 0x10000000;
    static constexpr std::uint32_t kCode = kBase + 0x1000;
    static constexpr std::uint32_t kImports = kBase + 0x2000;

    struct Section {
        std::string name;
        std::uint32_t type;
        std::uint32_t flags;
        std::uint32_t address;
        std::uint32_t size;  ///< of a section without content
        Bytes content;
        std::uint32_t link;
        std::uint32_t info;
    };

    ElfBuilder();

    /// Adds a relocation of the code or of the imports.
    void Relocate(std::uint32_t place, unsigned type, std::uint32_t symbol);

    /// Adds the symbol of a function of the code.
    void AddFunction(std::uint32_t address, std::uint32_t size);

    /// The section of a name.
    Section& At(const std::string& name);

    Bytes File() const;

    static constexpr std::uint32_t kMovingSymbol = 1;
    static constexpr std::uint32_t kAbsoluteSymbol = 2;
    static constexpr std::uint32_t kUndefinedSymbol = 3;

    Elf32_Ehdr header{};
    std::vector<Section> sections;
};

/// Little-endian bytes of words.
Bytes WordsOf(const std::vector<std::uint32_t>& words);

}  // namespace image
