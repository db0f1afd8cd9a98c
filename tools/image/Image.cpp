#include "Image.h"

#include "FunctionTable.h"
#include "ImageError.h"

#include <elf.h>

#include <algorithm>

namespace image {

namespace {

// Source of the numbers: the format of portable executables.
constexpr std::uint32_t kCode = 0x20;
constexpr std::uint32_t kInitialized = 0x40;
constexpr std::uint32_t kExecutable = 0x20000000;
constexpr std::uint32_t kReadable = 0x40000000;
constexpr std::uint32_t kWritable = 0x80000000;

struct SectionRule {
    const char* name;
    std::uint32_t characteristics;
    Directory directory;
};

// clang-format off
constexpr SectionRule kSectionRules[] = {
    {".text",  kCode | kExecutable | kReadable,      Directory::None},
    {".rdata", kInitialized | kReadable,             Directory::None},
    {".data",  kInitialized | kReadable | kWritable, Directory::None},
    {".idata", kInitialized | kReadable | kWritable, Directory::Imports},
    {".edata", kInitialized | kReadable,             Directory::Exports},
    {".rsrc",  kInitialized | kReadable,             Directory::Resources},
};
// clang-format on

const SectionRule& RuleOf(const ElfSection& section) {
    const auto* const rule =
        std::find_if(std::begin(kSectionRules), std::end(kSectionRules),
                     [&section](const SectionRule& row) { return section.name == row.name; });
    if (rule == std::end(kSectionRules)) {
        throw ImageError("unknown section " + section.name);
    }
    return *rule;
}

/// Whether a relocation makes its word an address, so that the word moves with the image; distances
/// inside the image stay as they are.
bool IsAddress(const ElfRelocation& relocation) {
    switch (relocation.type) {
    case R_ARM_ABS32:
    case R_ARM_TARGET1:
        return true;
    case R_ARM_NONE:
    case R_ARM_PC24:
    case R_ARM_CALL:
    case R_ARM_JUMP24:
    case R_ARM_REL32:
    case R_ARM_V4BX:
        return false;
    default:
        throw ImageError("unknown relocation type " + std::to_string(relocation.type) + " at " +
                         Hex(relocation.place));
    }
}

void CheckTarget(const ElfRelocation& relocation) {
    if (relocation.type == R_ARM_NONE || relocation.type == R_ARM_V4BX) {
        return;  // these only mark a place
    }
    if (relocation.target == ElfTarget::Undefined) {
        throw ImageError("relocation to nothing at " + Hex(relocation.place));
    }
    if (relocation.target == ElfTarget::Absolute) {
        throw ImageError("relocation to a fixed address at " + Hex(relocation.place));
    }
}

class ImageMaker {
public:
    explicit ImageMaker(const ElfFile& elf) : elf_(elf) {}

    Image Make() {
        image_.base = elf_.Symbol("IMAGE_BASE");
        for (const ElfSection& section : elf_.sections) {
            AddSection(section);
        }
        if (image_.sections.empty() || elf_.relocations.empty()) {
            throw ImageError("nothing to relocate: link with --emit-relocs");
        }
        for (const ElfRelocation& relocation : elf_.relocations) {
            CheckTarget(relocation);
            if (IsAddress(relocation)) {
                Relocate(relocation.place);
            }
        }
        AddFunctionTable();
        std::sort(image_.fixups.begin(), image_.fixups.end());
        image_.entry = elf_.entry - image_.base;
        const ImageSection& entered = SectionAt(elf_.entry, 4);
        if ((entered.characteristics & kExecutable) == 0) {
            throw ImageError("the entry point " + Hex(elf_.entry) + " is no code");
        }
        return image_;
    }

private:
    void AddSection(const ElfSection& section) {
        const SectionRule& rule = RuleOf(section);
        const std::uint32_t rva = section.address - image_.base;
        if (section.address < image_.base || rva % kPageSize != 0 || rva < End()) {
            throw ImageError("section " + section.name + " cannot start at " +
                             Hex(section.address));
        }
        if (section.size > kLargestImage || rva > kLargestImage - section.size) {
            throw ImageError("section " + section.name + " is too large");
        }
        image_.sections.push_back(
            {rule.name, rva, section.size, rule.characteristics, rule.directory, section.content});
    }

    /// Where the next section may start at the earliest: behind the headers, or the last section.
    std::uint32_t End() const {
        return image_.sections.empty() ? kPageSize
                                       : image_.sections.back().rva + image_.sections.back().size;
    }

    /// The section that holds `size` bytes at an address.
    ImageSection& SectionAt(std::uint32_t address, std::uint32_t size) {
        const std::uint32_t rva = address - image_.base;
        for (ImageSection& section : image_.sections) {
            const std::size_t filled = section.content.size();
            if (rva >= section.rva && filled >= size && rva - section.rva <= filled - size) {
                return section;
            }
        }
        throw ImageError("address " + Hex(address) + " lies in no section with content");
    }

    void Relocate(std::uint32_t place) {
        ImageSection& section = SectionAt(place, 4);
        if (place % 4 != 0) {
            throw ImageError("address in the unaligned word at " + Hex(place));
        }
        const std::uint32_t rva = place - image_.base;
        const std::uint32_t target = ReadU32(section.content, rva - section.rva) - image_.base;
        if (target > End()) {
            throw ImageError("the word at " + Hex(place) + " points outside the image");
        }
        if (section.directory == Directory::None) {
            image_.fixups.push_back(rva);
        } else {
            StoreU32(section.content, rva - section.rva, target);
        }
    }

    /// The table stands in a section of its own; the addresses in it move with the image.
    void AddFunctionTable() {
        const Bytes table = EncodeFunctions(FindFunctions(elf_));
        if (table.empty()) {
            return;
        }
        const std::uint32_t rva = (End() + kPageSize - 1) / kPageSize * kPageSize;
        const auto size = static_cast<std::uint32_t>(table.size());
        image_.sections.push_back(
            {".pdata", rva, size, kInitialized | kReadable, Directory::Functions, table});
        for (std::uint32_t entry = 0; entry < size; entry += kFunctionEntrySize) {
            image_.fixups.push_back(rva + entry);
        }
    }

    static constexpr std::uint32_t kLargestImage = 0x02000000;  ///< the device's slot of a process

    const ElfFile& elf_;
    Image image_;
};

}  // namespace

Image LayImage(const ElfFile& elf) {
    return ImageMaker(elf).Make();
}

}  // namespace image
