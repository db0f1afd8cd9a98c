#include "ImportLibrary.h"

#include "ImageError.h"

#include <map>
#include <sstream>

namespace image {

namespace {

// Source of the numbers: the format of object files and of import libraries.
constexpr std::uint32_t kExternal = 2;
constexpr std::uint32_t kStatic = 3;
constexpr std::uint32_t kSectionClass = 104;
constexpr std::uint32_t kDataCharacteristics = 0xC0300040;  ///< writable, aligned to four bytes
constexpr std::uint32_t kWordsOf32Bits = 0x100;
constexpr std::uint32_t kNameAsItIs = 1;
constexpr std::uint32_t kNameWithoutPrefix = 2;

struct Section {
    const char* name;
    Bytes content;
    std::vector<std::pair<std::uint32_t, std::uint32_t>> offsets;  ///< place, symbol
};

struct Symbol {
    std::string name;
    std::uint32_t section;  ///< counted from 1; 0: elsewhere
    std::uint32_t storageClass;
};

/// A member of the library and the names that it defines.
struct Member {
    Bytes content;
    std::vector<std::string> names;
};

/// One of the small object files around the list of imported functions.
Bytes EncodeObject(const ImportMachine& machine,
                   const std::vector<Section>& sections,
                   const std::vector<Symbol>& symbols) {
    std::uint32_t at = 20 + 40 * static_cast<std::uint32_t>(sections.size());
    ByteWriter headers;
    ByteWriter contents;
    for (const Section& section : sections) {
        const auto size = static_cast<std::uint32_t>(section.content.size());
        const auto relocations = static_cast<std::uint32_t>(section.offsets.size());
        headers.Text(section.name, 8);
        headers.U32(0);
        headers.U32(0);
        headers.U32(size);
        headers.U32(at);
        headers.U32(relocations != 0 ? at + size : 0);
        headers.U32(0);
        headers.U16(relocations);
        headers.U16(0);
        headers.U32(kDataCharacteristics);
        contents.Append(section.content);
        for (const auto& [place, symbol] : section.offsets) {
            contents.U32(place);
            contents.U32(symbol);
            contents.U16(machine.offsetRelocation);
        }
        at += size + relocations * 10;
    }
    ByteWriter table;
    ByteWriter longNames;
    for (const Symbol& symbol : symbols) {
        if (symbol.name.size() <= 8) {
            table.Text(symbol.name, 8);
        } else {
            table.U32(0);
            table.U32(4 + longNames.Size());
            longNames.Text(symbol.name, symbol.name.size() + 1);
        }
        table.U32(0);
        table.U16(symbol.section);
        table.U16(0);
        table.U8(symbol.storageClass);
        table.U8(0);
    }
    ByteWriter object;
    object.U16(machine.machine);
    object.U16(static_cast<std::uint32_t>(sections.size()));
    object.U32(0);
    object.U32(at);
    object.U32(static_cast<std::uint32_t>(symbols.size()));
    object.U16(0);
    object.U16(kWordsOf32Bits);
    object.Append(headers.Written());
    object.Append(contents.Written());
    object.Append(table.Written());
    object.U32(4 + longNames.Size());
    object.Append(longNames.Written());
    return object.Written();
}

std::string DescriptorName(const std::string& library) {
    return "__IMPORT_DESCRIPTOR_" + library;
}

std::string EndOfListName(const std::string& library) {
    return "\x7f" + library + "_NULL_THUNK_DATA";
}

constexpr const char* kEndOfDirectory = "__NULL_IMPORT_DESCRIPTOR";

/// The directory's entry of the library, with the library's file name.
Member DescriptorMember(const ImportMachine& machine, const std::string& library) {
    ByteWriter name;
    name.Text(library + ".dll", library.size() + 5);
    name.PadTo(2);
    const std::vector<Section> sections{
        {".idata$2", Bytes(20), {{12, 2}, {0, 3}, {16, 4}}},
        {".idata$6", name.Written(), {}},
    };
    const std::vector<Symbol> symbols{
        {DescriptorName(library), 1, kExternal},
        {".idata$2", 1, kSectionClass},
        {".idata$6", 2, kStatic},
        {".idata$4", 0, kSectionClass},
        {".idata$5", 0, kSectionClass},
        {kEndOfDirectory, 0, kExternal},
        {EndOfListName(library), 0, kExternal},
    };
    return {EncodeObject(machine, sections, symbols), {DescriptorName(library)}};
}

Member EndOfDirectoryMember(const ImportMachine& machine) {
    return {EncodeObject(machine, {{".idata$3", Bytes(20), {}}}, {{kEndOfDirectory, 1, kExternal}}),
            {kEndOfDirectory}};
}

Member EndOfListMember(const ImportMachine& machine, const std::string& library) {
    return {EncodeObject(machine, {{".idata$5", Bytes(4), {}}, {".idata$4", Bytes(4), {}}},
                         {{EndOfListName(library), 1, kExternal}}),
            {EndOfListName(library)}};
}

Member FunctionMember(const ImportMachine& machine,
                      const std::string& library,
                      const std::string& function) {
    const std::string symbol = machine.prefix + function;
    const std::string file = library + ".dll";
    const bool hasPrefix = symbol != function;
    ByteWriter out;
    out.U16(0);
    out.U16(0xFFFF);
    out.U16(0);
    out.U16(machine.machine);
    out.U32(0);
    out.U32(static_cast<std::uint32_t>(symbol.size() + file.size() + 2));
    out.U16(0);
    out.U16((hasPrefix ? kNameWithoutPrefix : kNameAsItIs) << 2U);
    out.Text(symbol, symbol.size() + 1);
    out.Text(file, file.size() + 1);
    return {out.Written(), {"__imp_" + symbol, symbol}};
}

void AppendMember(ByteWriter& out, const std::string& name, const Bytes& content) {
    out.Text(name + std::string(16 - name.size(), ' '), 16);
    out.Text("0           0     0     100644  ", 32);
    const std::string size = std::to_string(content.size());
    out.Text(size + std::string(10 - size.size(), ' '), 10);
    out.Text("`\n", 2);
    out.Append(content);
    if (content.size() % 2 != 0) {
        out.Text("\n", 1);
    }
}

std::uint32_t EvenSize(std::uint32_t size) {
    return size + size % 2;
}

/// The two indexes at the library's head: where the member stands that defines a name.
class Index {
public:
    explicit Index(const std::vector<Member>& members) {
        for (std::uint32_t number = 0; number < members.size(); ++number) {
            for (const std::string& name : members[number].names) {
                inOrder_.emplace_back(name, number);
                sorted_[name] = number;
            }
        }
        const std::uint32_t fixed = 4 + 4 * static_cast<std::uint32_t>(inOrder_.size());
        std::uint32_t text = 0;
        for (const auto& entry : inOrder_) {
            text += static_cast<std::uint32_t>(entry.first.size()) + 1;
        }
        const auto count = static_cast<std::uint32_t>(members.size());
        const auto names = static_cast<std::uint32_t>(inOrder_.size());
        std::uint32_t at =
            8 + 60 + EvenSize(fixed + text) + 60 + EvenSize(4 + 4 * count + 4 + 2 * names + text);
        for (const Member& member : members) {
            offsets_.push_back(at);
            at += 60 + EvenSize(static_cast<std::uint32_t>(member.content.size()));
        }
    }

    /// In the order of the members, with the numbers' high bytes first.
    Bytes First() const {
        ByteWriter out;
        HighFirst(out, static_cast<std::uint32_t>(inOrder_.size()));
        for (const auto& entry : inOrder_) {
            HighFirst(out, offsets_[entry.second]);
        }
        for (const auto& entry : inOrder_) {
            out.Text(entry.first, entry.first.size() + 1);
        }
        return out.Written();
    }

    /// In the order of the names.
    Bytes Second() const {
        ByteWriter out;
        out.U32(static_cast<std::uint32_t>(offsets_.size()));
        for (const std::uint32_t offset : offsets_) {
            out.U32(offset);
        }
        out.U32(static_cast<std::uint32_t>(sorted_.size()));
        for (const auto& entry : sorted_) {
            out.U16(entry.second + 1);
        }
        for (const auto& entry : sorted_) {
            out.Text(entry.first, entry.first.size() + 1);
        }
        return out.Written();
    }

private:
    static void HighFirst(ByteWriter& out, std::uint32_t value) {
        for (unsigned shift = 32; shift != 0; shift -= 8) {
            out.U8(value >> (shift - 8));
        }
    }

    std::vector<std::pair<std::string, std::uint32_t>> inOrder_;
    std::map<std::string, std::uint32_t> sorted_;
    std::vector<std::uint32_t> offsets_;
};

}  // namespace

Definition ReadDefinition(const Bytes& text) {
    std::istringstream words(std::string(text.begin(), text.end()));
    Definition definition;
    std::string word;
    if (!(words >> word) || word != "LIBRARY" || !(words >> definition.library) ||
        !(words >> word) || word != "EXPORTS") {
        throw ImageError("expected LIBRARY, a name and EXPORTS");
    }
    while (words >> word) {
        if (word.find_first_of("=@;,") != std::string::npos) {
            throw ImageError("an export is expected to be a bare name, not " + word);
        }
        definition.exports.push_back(word);
    }
    return definition;
}

Bytes EncodeImportLibrary(const ImportMachine& machine, const Definition& definition) {
    const std::string& library = definition.library;
    if (library.size() > 11) {
        throw ImageError("the name of the library is longer than 11 characters");
    }
    std::vector<Member> members{DescriptorMember(machine, library), EndOfDirectoryMember(machine),
                                EndOfListMember(machine, library)};
    for (const std::string& function : definition.exports) {
        members.push_back(FunctionMember(machine, library, function));
    }
    const Index index(members);
    ByteWriter out;
    out.Text("!<arch>\n", 8);
    AppendMember(out, "/", index.First());
    AppendMember(out, "/", index.Second());
    for (const Member& member : members) {
        AppendMember(out, library + ".dll/", member.content);
    }
    return out.Written();
}

}  // namespace image
