#include "PeFile.h"

#include <algorithm>
#include <stdexcept>

namespace emulation {

namespace {

/// Little-endian numbers of the file; reading outside it throws.
struct FileReader {
    const Bytes& file;

    std::uint32_t U16(std::size_t at) const {
        return file.at(at) | (std::uint32_t{file.at(at + 1)} << 8U);
    }
    std::uint32_t U32(std::size_t at) const { return U16(at) | (U16(at + 2) << 16U); }
};

void MapSections(const FileReader& in, std::size_t table, unsigned count, PeFile& pe) {
    for (unsigned index = 0; index < count; ++index) {
        const std::size_t at = table + std::size_t{40} * index;
        PeSection section;
        for (std::size_t place = at; place < at + 8 && in.file.at(place) != 0; ++place) {
            section.name += static_cast<char>(in.file[place]);
        }
        section.size = in.U32(at + 8);
        section.rva = in.U32(at + 12);
        section.fileSize = in.U32(at + 16);
        section.fileOffset = in.U32(at + 20);
        section.characteristics = in.U32(at + 36);
        const std::uint32_t filled = std::min(section.size, section.fileSize);
        for (std::uint32_t offset = 0; offset < filled; ++offset) {
            pe.image.at(section.rva + offset) = in.file.at(section.fileOffset + offset);
        }
        pe.sections.push_back(section);
    }
}

void ReadExports(std::uint32_t directory, PeFile& pe) {
    const std::uint32_t functions = pe.WordAt(directory + 28);
    const std::uint32_t names = pe.WordAt(directory + 32);
    const std::uint32_t ordinals = pe.WordAt(directory + 36);
    for (std::uint32_t index = 0; index < pe.WordAt(directory + 24); ++index) {
        const std::uint32_t ordinal = pe.WordAt(ordinals + 2 * index) & 0xFFFFU;
        pe.exports[pe.TextAt(pe.WordAt(names + 4 * index))] = pe.WordAt(functions + 4 * ordinal);
    }
}

void ReadImports(std::uint32_t directory, PeFile& pe) {
    for (; pe.WordAt(directory + 12) != 0; directory += 20) {
        const std::string library = pe.TextAt(pe.WordAt(directory + 12));
        std::uint32_t name = pe.WordAt(directory);
        std::uint32_t word = pe.WordAt(directory + 16);
        for (; pe.WordAt(name) != 0; name += 4, word += 4) {
            if ((pe.WordAt(name) >> 31U) != 0) {
                throw std::runtime_error("import by number from " + library);
            }
            pe.imports.push_back({library, pe.TextAt(pe.WordAt(name) + 2), word});
        }
    }
}

void ReadFixups(std::uint32_t directory, std::uint32_t size, PeFile& pe) {
    constexpr std::uint32_t kNothing = 0;
    constexpr std::uint32_t kWord = 3;
    const std::uint32_t end = directory + size;
    while (directory < end) {
        const std::uint32_t page = pe.WordAt(directory);
        const std::uint32_t blockSize = pe.WordAt(directory + 4);
        if (blockSize < 8 || blockSize > end - directory) {
            throw std::runtime_error("damaged block of fixups");
        }
        for (std::uint32_t at = directory + 8; at < directory + blockSize; at += 2) {
            const std::uint32_t entry = pe.WordAt(at) & 0xFFFFU;
            if (entry >> 12U == kWord) {
                pe.fixups.push_back(page + (entry & 0xFFFU));
            } else if (entry >> 12U != kNothing) {
                throw std::runtime_error("unknown fixup");
            }
        }
        directory += blockSize;
    }
}

/// Only ARM has this table of eight bytes for each function.
void ReadFunctions(std::uint32_t directory, std::uint32_t size, PeFile& pe) {
    if (pe.machine != kMachineArm) {
        return;
    }
    for (std::uint32_t at = directory; at < directory + size; at += 8) {
        const std::uint32_t packed = pe.WordAt(at + 4);
        pe.functions.push_back({pe.WordAt(at) - pe.base, packed & 0xFFU, (packed >> 8U) & 0x3FFFFFU,
                                (packed >> 30U) % 2 != 0, packed >> 31U != 0});
    }
}

}  // namespace

std::uint32_t PeFile::WordAt(std::uint32_t rva) const {
    return FileReader{image}.U32(rva);
}

std::string PeFile::TextAt(std::uint32_t rva) const {
    std::string text;
    for (; image.at(rva) != 0; ++rva) {
        text += static_cast<char>(image[rva]);
    }
    return text;
}

PeFile ReadPe(const Bytes& file) {
    const FileReader in{file};
    const std::uint32_t header = in.U32(0x3C);
    if (in.U16(0) != 0x5A4D || in.U32(header) != 0x4550 || in.U16(header + 24) != 0x10B) {
        throw std::runtime_error("not a 32-bit portable executable");
    }
    const std::uint32_t optional = header + 24;
    PeFile pe;
    pe.machine = in.U16(header + 4);
    pe.entry = in.U32(optional + 16);
    pe.base = in.U32(optional + 28);
    pe.size = in.U32(optional + 56);
    pe.image.resize(pe.size + 4);  // a half-word at the very end may be read as a word
    std::copy_n(file.begin(), in.U32(optional + 60), pe.image.begin());
    MapSections(in, optional + in.U16(header + 20), in.U16(header + 6), pe);
    ReadExports(in.U32(optional + 96), pe);
    ReadImports(in.U32(optional + 104), pe);
    ReadFunctions(in.U32(optional + 120), in.U32(optional + 124), pe);
    ReadFixups(in.U32(optional + 136), in.U32(optional + 140), pe);
    return pe;
}

}  // namespace emulation
