#include "ElfFile.h"

#include "ImageError.h"

#include <elf.h>

#include <cstring>

namespace image {

namespace {

/// The structures of the file, each read only where the file holds it wholly.
class ElfReader {
public:
    explicit ElfReader(const Bytes& file) : file_(file) {}

    ElfFile Read() {
        const auto header = At<Elf32_Ehdr>(0, "header");
        CheckKind(header);
        for (std::uint32_t index = 0; index < header.e_shnum; ++index) {
            headers_.push_back(
                At<Elf32_Shdr>(Offset(header.e_shoff, index, sizeof(Elf32_Shdr)), "section table"));
        }
        names_ = Content(HeaderAt(header.e_shstrndx));
        ElfFile elf;
        elf.entry = header.e_entry;
        for (const Elf32_Shdr& section : headers_) {
            AddSection(section, elf);
            AddSymbols(section, elf);
            AddRelocations(section, elf);
        }
        return elf;
    }

private:
    static void CheckKind(const Elf32_Ehdr& header) {
        const unsigned char* const ident = header.e_ident;
        if (std::memcmp(ident, ELFMAG, SELFMAG) != 0) {
            throw ImageError("not an ELF file");
        }
        if (ident[EI_CLASS] != ELFCLASS32 || ident[EI_DATA] != ELFDATA2LSB ||
            header.e_machine != EM_ARM) {
            throw ImageError("not a 32-bit little-endian ARM file");
        }
        if (header.e_type != ET_EXEC) {
            throw ImageError("not linked to a fixed address");
        }
        if (header.e_shentsize != sizeof(Elf32_Shdr)) {
            throw ImageError("section table of an unknown shape");
        }
    }

    /// Offset of an entry of a table; beyond every file when it does not fit into 32 bits.
    static std::uint64_t Offset(std::uint64_t table, std::uint64_t index, std::uint64_t size) {
        return table + index * size;
    }

    template <typename Structure>
    Structure At(std::uint64_t offset, const char* what) const {
        Structure structure{};
        if (offset > file_.size() || file_.size() - offset < sizeof(structure)) {
            throw ImageError(std::string("the file ends inside its ") + what);
        }
        std::memcpy(&structure, file_.data() + offset, sizeof(structure));
        return structure;
    }

    const Elf32_Shdr& HeaderAt(std::uint32_t index) const {
        if (index >= headers_.size()) {
            throw ImageError("no section has the number " + std::to_string(index));
        }
        return headers_[index];
    }

    Bytes Content(const Elf32_Shdr& section) const {
        if (section.sh_type == SHT_NOBITS) {
            return {};
        }
        if (section.sh_offset > file_.size() ||
            file_.size() - section.sh_offset < section.sh_size) {
            throw ImageError("the file ends inside a section");
        }
        const auto begin = file_.begin() + static_cast<std::ptrdiff_t>(section.sh_offset);
        return Bytes(begin, begin + static_cast<std::ptrdiff_t>(section.sh_size));
    }

    static std::string TextAt(const Bytes& texts, std::uint32_t offset) {
        std::string text;
        for (std::size_t at = offset;; ++at) {
            if (at >= texts.size()) {
                throw ImageError("a name without an end");
            }
            if (texts[at] == 0) {
                return text;
            }
            text += static_cast<char>(texts[at]);
        }
    }

    static bool IsLoaded(const Elf32_Shdr& section) { return (section.sh_flags & SHF_ALLOC) != 0; }

    void AddSection(const Elf32_Shdr& section, ElfFile& elf) const {
        if (IsLoaded(section) && section.sh_size != 0) {
            elf.sections.push_back({TextAt(names_, section.sh_name), section.sh_addr,
                                    section.sh_size, Content(section)});
        }
    }

    void AddSymbols(const Elf32_Shdr& section, ElfFile& elf) const {
        if (section.sh_type != SHT_SYMTAB) {
            return;
        }
        const Bytes texts = Content(HeaderAt(section.sh_link));
        for (std::uint32_t index = 0; index < section.sh_size / sizeof(Elf32_Sym); ++index) {
            const Elf32_Sym symbol = SymbolAt(section, index);
            if (symbol.st_shndx == SHN_UNDEF) {
                continue;
            }
            const std::string name = TextAt(texts, symbol.st_name);
            if (ELF32_ST_BIND(symbol.st_info) != STB_LOCAL) {
                elf.symbols[name] = symbol.st_value;
            }
            if (symbol.st_shndx < headers_.size() && IsLoaded(headers_[symbol.st_shndx])) {
                AddCodeSymbol(symbol, name, elf);
            }
        }
    }

    static void AddCodeSymbol(const Elf32_Sym& symbol, const std::string& name, ElfFile& elf) {
        if (ELF32_ST_TYPE(symbol.st_info) == STT_FUNC) {
            elf.functions.push_back({name, symbol.st_value, symbol.st_size});
            return;
        }
        const std::string mark = name.substr(0, name.find('.'));
        if (mark == "$t") {
            throw ImageError("Thumb code at " + Hex(symbol.st_value));
        }
        if (mark == "$a" || mark == "$d") {
            elf.marks.push_back({symbol.st_value, mark == "$a"});
        }
    }

    Elf32_Sym SymbolAt(const Elf32_Shdr& table, std::uint32_t index) const {
        if (index >= table.sh_size / sizeof(Elf32_Sym)) {
            throw ImageError("a relocation names symbol " + std::to_string(index) +
                             ", which is none");
        }
        return At<Elf32_Sym>(Offset(table.sh_offset, index, sizeof(Elf32_Sym)), "symbol table");
    }

    void AddRelocations(const Elf32_Shdr& section, ElfFile& elf) const {
        const bool hasAddends = section.sh_type == SHT_RELA;
        if ((section.sh_type != SHT_REL && !hasAddends) || !IsLoaded(HeaderAt(section.sh_info))) {
            return;
        }
        if (hasAddends) {
            throw ImageError("relocations with addends, which no linker writes for this processor");
        }
        const Elf32_Shdr& symbols = HeaderAt(section.sh_link);
        for (std::uint32_t index = 0; index < section.sh_size / sizeof(Elf32_Rel); ++index) {
            const auto entry =
                At<Elf32_Rel>(Offset(section.sh_offset, index, sizeof(Elf32_Rel)), "relocations");
            elf.relocations.push_back({entry.r_offset, ELF32_R_TYPE(entry.r_info),
                                       TargetOf(SymbolAt(symbols, ELF32_R_SYM(entry.r_info)))});
        }
    }

    static ElfTarget TargetOf(const Elf32_Sym& symbol) {
        switch (symbol.st_shndx) {
        case SHN_UNDEF:
            return ElfTarget::Undefined;
        case SHN_ABS:
            return ElfTarget::Absolute;
        default:
            return ElfTarget::Moving;
        }
    }

    const Bytes& file_;
    std::vector<Elf32_Shdr> headers_;
    Bytes names_;
};

}  // namespace

std::uint32_t ElfFile::Symbol(const std::string& name) const {
    const auto found = symbols.find(name);
    if (found == symbols.end()) {
        throw ImageError("no symbol " + name);
    }
    return found->second;
}

ElfFile ReadElf(const Bytes& file) {
    return ElfReader(file).Read();
}

}  // namespace image
