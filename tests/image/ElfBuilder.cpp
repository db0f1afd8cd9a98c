#include "ElfBuilder.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>

namespace image {

namespace {

template <typename Structure>
void Append(Bytes& bytes, const Structure& structure) {
    const auto* const first = reinterpret_cast<const std::uint8_t*>(&structure);
    bytes.insert(bytes.end(), first, first + sizeof(structure));
}

Elf32_Sym SymbolOf(std::uint32_t name, std::uint32_t value, std::uint16_t section) {
    Elf32_Sym symbol{};
    symbol.st_name = name;
    symbol.st_value = value;
    symbol.st_info = ELF32_ST_INFO(STB_GLOBAL, STT_NOTYPE);
    symbol.st_shndx = section;
    return symbol;
}

Bytes TextsOf(const std::vector<std::string>& texts) {
    Bytes bytes{0};
    for (const std::string& text : texts) {
        bytes.insert(bytes.end(), text.begin(), text.end());
        bytes.push_back(0);
    }
    return bytes;
}

}  // namespace

Bytes WordsOf(const std::vector<std::uint32_t>& words) {
    Bytes bytes;
    for (const std::uint32_t word : words) {
        Append(bytes, word);
    }
    return bytes;
}

ElfBuilder::ElfBuilder() {
    std::memcpy(header.e_ident, ELFMAG, SELFMAG);
    header.e_ident[EI_CLASS] = ELFCLASS32;
    header.e_ident[EI_DATA] = ELFDATA2LSB;
    header.e_type = ET_EXEC;
    header.e_machine = EM_ARM;
    header.e_entry = kCode;
    header.e_shentsize = sizeof(Elf32_Shdr);

    Bytes symbols;
    Append(symbols, Elf32_Sym{});
    Append(symbols, SymbolOf(0, kCode, 1));
    Append(symbols, SymbolOf(1, kBase, SHN_ABS));
    Append(symbols, SymbolOf(0, 0, SHN_UNDEF));
    constexpr std::uint32_t kLoaded = SHF_ALLOC;
    sections = {
        {"", SHT_NULL, 0, 0, 0, {}, 0, 0},
        {".text", SHT_PROGBITS, kLoaded, kCode, 0, WordsOf({0xE1A0F00E, kCode}), 0, 0},
        {".idata", SHT_PROGBITS, kLoaded, kImports, 0, WordsOf({kImports}), 0, 0},
        {".symtab", SHT_SYMTAB, 0, 0, 0, symbols, 4, 0},
        {".strtab", SHT_STRTAB, 0, 0, 0, TextsOf({"IMAGE_BASE"}), 0, 0},
        {".rel.text", SHT_REL, 0, 0, 0, {}, 3, 1},
        {".rel.idata", SHT_REL, 0, 0, 0, {}, 3, 2},
    };
    Relocate(kCode + 4, R_ARM_ABS32, kMovingSymbol);
}

void ElfBuilder::Relocate(std::uint32_t place, unsigned type, std::uint32_t symbol) {
    const Elf32_Rel relocation{place, ELF32_R_INFO(symbol, type)};
    Append(At(place < kImports ? ".rel.text" : ".rel.idata").content, relocation);
}

void ElfBuilder::AddFunction(std::uint32_t address, std::uint32_t size) {
    Elf32_Sym symbol = SymbolOf(0, address, 1);
    symbol.st_size = size;
    symbol.st_info = ELF32_ST_INFO(STB_LOCAL, STT_FUNC);
    Append(At(".symtab").content, symbol);
}

ElfBuilder::Section& ElfBuilder::At(const std::string& name) {
    const auto found =
        std::find_if(sections.begin(), sections.end(),
                     [&name](const Section& section) { return section.name == name; });
    if (found == sections.end()) {
        throw std::out_of_range(name);
    }
    return *found;
}

/// The header, the contents one after the other, the sections' names, the table of sections.
Bytes ElfBuilder::File() const {
    std::vector<std::string> texts;
    std::vector<Elf32_Shdr> table;
    Bytes contents;
    for (const Section& section : sections) {
        Elf32_Shdr entry{};
        entry.sh_name = static_cast<std::uint32_t>(TextsOf(texts).size());
        entry.sh_type = section.type;
        entry.sh_flags = section.flags;
        entry.sh_addr = section.address;
        entry.sh_offset = static_cast<std::uint32_t>(sizeof(header) + contents.size());
        entry.sh_size = section.content.empty()
                            ? section.size
                            : static_cast<std::uint32_t>(section.content.size());
        entry.sh_link = section.link;
        entry.sh_info = section.info;
        table.push_back(entry);
        texts.push_back(section.name);
        contents.insert(contents.end(), section.content.begin(), section.content.end());
    }
    const Bytes names = TextsOf(texts);
    Elf32_Shdr entry{};
    entry.sh_type = SHT_STRTAB;
    entry.sh_offset = static_cast<std::uint32_t>(sizeof(header) + contents.size());
    entry.sh_size = static_cast<std::uint32_t>(names.size());
    table.push_back(entry);
    contents.insert(contents.end(), names.begin(), names.end());

    Elf32_Ehdr complete = header;
    complete.e_shoff = static_cast<std::uint32_t>(sizeof(header) + contents.size());
    complete.e_shnum = static_cast<std::uint16_t>(table.size());
    complete.e_shstrndx = static_cast<std::uint16_t>(table.size() - 1);
    Bytes file;
    Append(file, complete);
    file.insert(file.end(), contents.begin(), contents.end());
    for (const Elf32_Shdr& section : table) {
        Append(file, section);
    }
    return file;
}

}  // namespace image
