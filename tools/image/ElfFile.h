#pragma once

#include "Bytes.h"

#include <map>
#include <string>
#include <vector>

namespace image {

/// A section that is part of the running program.
struct ElfSection {
    std::string name;
    std::uint32_t address = 0;
    std::uint32_t size = 0;
    Bytes content;  ///< empty for a section that is only cleared memory, else `size` bytes
};

/// What a relocation refers to.
enum class ElfTarget {
    Moving,     ///< something inside the program: it moves with it
    Absolute,   ///< a fixed number
    Undefined,  ///< nothing
};

/// A word of the program that the linker computed from an address.
struct ElfRelocation {
    std::uint32_t place = 0;  ///< address of the word
    unsigned type = 0;        ///< R_ARM_...
    ElfTarget target = ElfTarget::Undefined;
};

/// A function of the program, as its symbol has it.
struct ElfFunction {
    std::string name;
    std::uint32_t address = 0;
    std::uint32_t size = 0;
};

/// Where instructions begin, or data among them: the assembler marks both.
struct ElfMark {
    std::uint32_t address = 0;
    bool isCode = false;
};

/// A linked 32-bit ARM program whose linker kept the relocations.
struct ElfFile {
    std::uint32_t entry = 0;
    std::vector<ElfSection> sections;        ///< in the order of the file
    std::vector<ElfRelocation> relocations;  ///< of those sections only
    std::map<std::string, std::uint32_t> symbols;
    std::vector<ElfFunction> functions;  ///< local ones too
    std::vector<ElfMark> marks;

    /// Address or value of a symbol. Throws ImageError when there is none of that name.
    std::uint32_t Symbol(const std::string& name) const;
};

/// Reads a program. Throws ImageError for anything damaged or of another kind; no input makes it
/// read outside the bytes.
ElfFile ReadElf(const Bytes& file);

}  // namespace image
