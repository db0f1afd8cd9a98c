#include "PeFormat.h"

#include <algorithm>

namespace image {

namespace {

// Source of the numbers: the format of portable executables.
constexpr std::uint32_t kMachineArm = 0x01C0;
constexpr std::uint32_t kWindowsCeGui = 9;
/// Executable, without line numbers and local symbols, 32 bits, a library.
constexpr std::uint32_t kFileCharacteristics = 0x210E;
constexpr std::uint32_t kFixupCharacteristics = 0x42000040;  ///< read once, then discarded
constexpr std::uint32_t kHighLow = 3;                        ///< fixup of a whole word
constexpr std::uint32_t kDirectories = 16;
constexpr std::uint32_t kFixupDirectory = 5;
constexpr std::uint32_t kFileAlignment = 0x200;
constexpr std::uint32_t kDosHeaderSize = 0x40;
constexpr std::uint32_t kOptionalHeaderSize = 224;
constexpr std::uint32_t kSectionHeaderSize = 40;
/// Of the system that the image needs at least.
constexpr std::uint32_t kSystemMajor = 4;
constexpr std::uint32_t kSystemMinor = 10;

std::uint32_t RoundUp(std::uint32_t value, std::uint32_t multiple) {
    return (value + multiple - 1) / multiple * multiple;
}

std::uint32_t DirectoryNumber(Directory directory) {
    switch (directory) {
    case Directory::Exports:
        return 0;
    case Directory::Imports:
        return 1;
    case Directory::Resources:
        return 2;
    case Directory::Functions:
        return 3;
    case Directory::None:
        break;
    }
    return kDirectories;
}

class ImageEncoder {
public:
    explicit ImageEncoder(const Image& image) : image_(image), sections_(image.sections) {
        const ImageSection& last = sections_.back();
        ImageSection fixups;
        fixups.name = ".reloc";
        fixups.rva = RoundUp(last.rva + last.size, kPageSize);
        fixups.content = EncodeFixups(image.fixups);
        fixups.size = static_cast<std::uint32_t>(fixups.content.size());
        fixups.characteristics = kFixupCharacteristics;
        sections_.push_back(fixups);
    }

    Bytes Encode() {
        const auto count = static_cast<std::uint32_t>(sections_.size());
        headersSize_ =
            RoundUp(kDosHeaderSize + 4 + 20 + kOptionalHeaderSize + count * kSectionHeaderSize,
                    kFileAlignment);
        out_.Text("MZ", kDosHeaderSize - 4);
        out_.U32(kDosHeaderSize);
        out_.Text("PE", 4);
        FileHeader();
        OptionalHeader();
        SectionHeaders();
        out_.PadTo(kFileAlignment);
        for (const ImageSection& section : sections_) {
            out_.Append(section.content);
            out_.PadTo(kFileAlignment);
        }
        return WithChecksum();
    }

private:
    void FileHeader() {
        out_.U16(kMachineArm);
        out_.U16(static_cast<std::uint32_t>(sections_.size()));
        out_.U32(0);  // time stamp: none, for the same bytes from every build
        out_.U32(0);  // no symbols
        out_.U32(0);
        out_.U16(kOptionalHeaderSize);
        out_.U16(kFileCharacteristics);
    }

    void OptionalHeader() {
        const std::uint32_t code = RoundUp(SizeOf(".text"), kFileAlignment);
        std::uint32_t initialized = 0;
        for (const ImageSection& section : sections_) {
            initialized += FileSize(section);
        }
        out_.U16(0x10B);  // 32 bits
        out_.U16(0);      // version of the linker
        out_.U32(code);
        out_.U32(initialized - code);
        out_.U32(0);  // cleared memory is part of .data
        out_.U32(image_.entry);
        out_.U32(sections_.front().rva);
        out_.U32(sections_.size() > 1 ? sections_[1].rva : 0);
        out_.U32(image_.base);
        out_.U32(kPageSize);
        out_.U32(kFileAlignment);
        for (int version = 0; version < 3; ++version) {  // system, image, subsystem
            const bool isImage = version == 1;
            out_.U16(isImage ? 0 : kSystemMajor);
            out_.U16(isImage ? 0 : kSystemMinor);
        }
        out_.U32(0);
        out_.U32(RoundUp(sections_.back().rva + sections_.back().size, kPageSize));
        out_.U32(headersSize_);
        checksumAt_ = out_.Size();
        out_.U32(0);
        out_.U16(kWindowsCeGui);
        out_.U16(0);
        out_.U32(0x10000);  // stack and heap: of programs only
        out_.U32(0x1000);
        out_.U32(0x100000);
        out_.U32(0x1000);
        out_.U32(0);
        out_.U32(kDirectories);
        for (std::uint32_t number = 0; number < kDirectories; ++number) {
            DirectoryEntry(number);
        }
    }

    void DirectoryEntry(std::uint32_t number) {
        for (const ImageSection& section : sections_) {
            const bool isFixups = &section == &sections_.back();
            if ((isFixups ? kFixupDirectory : DirectoryNumber(section.directory)) == number) {
                out_.U32(section.rva);
                out_.U32(section.size);
                return;
            }
        }
        out_.U32(0);
        out_.U32(0);
    }

    void SectionHeaders() {
        std::uint32_t offset = headersSize_;
        for (const ImageSection& section : sections_) {
            const std::uint32_t fileSize = FileSize(section);
            out_.Text(section.name, 8);
            out_.U32(section.size);
            out_.U32(section.rva);
            out_.U32(fileSize);
            out_.U32(fileSize != 0 ? offset : 0);
            out_.U32(0);
            out_.U32(0);
            out_.U32(0);
            out_.U32(section.characteristics);
            offset += fileSize;
        }
    }

    std::uint32_t SizeOf(const char* name) const {
        const auto section =
            std::find_if(sections_.begin(), sections_.end(),
                         [name](const ImageSection& candidate) { return candidate.name == name; });
        return section != sections_.end() ? section->size : 0;
    }

    static std::uint32_t FileSize(const ImageSection& section) {
        return RoundUp(static_cast<std::uint32_t>(section.content.size()), kFileAlignment);
    }

    /// The 16-bit words added up with their carries, plus the size of the file.
    Bytes WithChecksum() const {
        Bytes file = out_.Written();
        std::uint32_t sum = 0;
        for (std::size_t at = 0; at < file.size(); at += 2) {
            sum += file[at] | (std::uint32_t{file[at + 1]} << 8U);
            sum = (sum & 0xFFFFU) + (sum >> 16U);
        }
        StoreU32(file, checksumAt_, sum + out_.Size());
        return file;
    }

    const Image& image_;
    std::vector<ImageSection> sections_;  ///< the fixups come last
    std::uint32_t headersSize_ = 0;
    std::uint32_t checksumAt_ = 0;
    ByteWriter out_;
};

}  // namespace

Bytes EncodeFixups(const std::vector<std::uint32_t>& fixups) {
    ByteWriter out;
    for (auto first = fixups.begin(); first != fixups.end();) {
        const std::uint32_t page = *first / kPageSize;
        const auto last = std::find_if(
            first, fixups.end(), [page](std::uint32_t rva) { return rva / kPageSize != page; });
        const auto count = static_cast<std::uint32_t>(last - first);
        out.U32(page * kPageSize);
        out.U32(8 + (count + count % 2) * 2);
        for (; first != last; ++first) {
            out.U16((kHighLow << 12U) | (*first % kPageSize));
        }
        out.PadTo(4);  // an entry of type 0: nothing to do
    }
    return out.Written();
}

Bytes EncodeImage(const Image& image) {
    return ImageEncoder(image).Encode();
}

}  // namespace image
