#include "JoinedImage.h"

namespace emulation {

namespace {

void PutWord(Bytes& image, std::uint32_t rva, std::uint32_t word) {
    for (unsigned index = 0; index < 4; ++index) {
        image.at(rva + index) = static_cast<std::uint8_t>(word >> (8 * index));
    }
}

}  // namespace

PeFile JoinedImage(const PeFile& library, const std::string& file, const PeFile& host) {
    constexpr std::uint32_t kPage = 0x1000;
    const std::uint32_t behind = (library.size + kPage - 1) / kPage * kPage;
    PeFile joined = library;
    joined.size = behind + host.size;
    joined.image.resize(behind);
    joined.image.insert(joined.image.end(), host.image.begin(), host.image.end());
    for (PeSection section : host.sections) {
        section.rva += behind;
        joined.sections.push_back(section);
    }
    for (const auto& [name, rva] : host.exports) {
        joined.exports.emplace(name, rva + behind);
    }
    // All words are made right for the library's base, and move from there as the library's do.
    for (const std::uint32_t rva : host.fixups) {
        PutWord(joined.image, rva + behind, host.WordAt(rva) + library.base + behind - host.base);
        joined.fixups.push_back(rva + behind);
    }
    for (const PeImport& import : host.imports) {
        if (import.library == file) {
            PutWord(joined.image, import.word + behind,
                    library.base + library.exports.at(import.function));
            joined.fixups.push_back(import.word + behind);
        } else {
            joined.imports.push_back({import.library, import.function, import.word + behind});
        }
    }
    return joined;
}

}  // namespace emulation
