#include "ArmLoader.h"

#include "ArmSystem.h"
#include "ArmTerminal.h"

#include "LittleEndian.h"

namespace arm {

namespace {

constexpr unsigned kLargestFile = 1U << 20U;

std::uint32_t U16(const unsigned char* at) noexcept {
    return *reinterpret_cast<const u16le*>(at);
}

std::uint32_t U32(const unsigned char* at) noexcept {
    return *reinterpret_cast<const u32le*>(at);
}

std::uint32_t& WordAt(unsigned char* at) noexcept {
    return *static_cast<std::uint32_t*>(static_cast<void*>(at));
}

const char* TextAt(const unsigned char* at) noexcept {
    return reinterpret_cast<const char*>(at);
}

unsigned char* OptionalHeader(unsigned char* image) noexcept {
    return image + U32(image + 0x3C) + 24;
}

/// The directory of a number, or null.
unsigned char* Directory(unsigned char* image, unsigned number) noexcept {
    const std::uint32_t rva = U32(OptionalHeader(image) + 96 + 8 * number);
    return rva != 0 ? image + rva : nullptr;
}

void ReadWhole(const char* path, unsigned char* bytes) noexcept {
    const int file = Open(path);
    if (file < 0) {
        Fail("the library cannot be opened");
    }
    for (;;) {
        const int count = Read(file, bytes, kLargestFile);
        if (count <= 0) {
            return;
        }
        bytes += count;
    }
}

void Copy(unsigned char* to, const unsigned char* from, std::uint32_t size) noexcept {
    for (std::uint32_t index = 0; index < size; ++index) {
        to[index] = from[index];
    }
}

unsigned char* MapImage(const unsigned char* file) noexcept {
    const unsigned char* const header = file + U32(file + 0x3C);
    const unsigned char* const optional = header + 24;
    if (U16(file) != 0x5A4D || U32(header) != 0x4550 || U16(header + 4) != 0x01C0) {
        Fail("not a library for this device");
    }
    auto* const image = static_cast<unsigned char*>(Allocate(U32(optional + 56)));
    Copy(image, file, U32(optional + 60));
    const unsigned char* section = optional + U16(header + 20);
    for (std::uint32_t count = U16(header + 6); count != 0; --count, section += 40) {
        const std::uint32_t size = U32(section + 8);
        const std::uint32_t fileSize = U32(section + 16);
        Copy(image + U32(section + 12), file + U32(section + 20),
             size < fileSize ? size : fileSize);
    }
    return image;
}

void ApplyFixups(unsigned char* image) noexcept {
    const std::uint32_t moved =
        reinterpret_cast<std::uintptr_t>(image) - U32(OptionalHeader(image) + 28);
    unsigned char* block = Directory(image, 5);
    unsigned char* const end = block + U32(OptionalHeader(image) + 96 + 8 * 5 + 4);
    while (block < end) {
        const std::uint32_t size = U32(block + 4);
        for (std::uint32_t at = 8; at < size; at += 2) {
            const std::uint32_t entry = U16(block + at);
            if (entry >> 12U == 3) {
                WordAt(image + U32(block) + (entry & 0xFFFU)) += moved;
            }
        }
        block += size;
    }
}

void BindImports(unsigned char* image) noexcept {
    for (unsigned char* library = Directory(image, 1); U32(library + 12) != 0; library += 20) {
        const unsigned char* name = image + U32(library);
        unsigned char* word = image + U32(library + 16);
        for (; U32(name) != 0; name += 4, word += 4) {
            void* const function = FindFunction(TextAt(image + U32(name) + 2));
            if (function == nullptr) {
                Fail("an import that the device has not");
            }
            WordAt(word) = reinterpret_cast<std::uintptr_t>(function);
        }
    }
}

}  // namespace

unsigned char* LoadLibraryFile(const char* path) noexcept {
    auto* const file = static_cast<unsigned char*>(Allocate(kLargestFile));
    ReadWhole(path, file);
    unsigned char* const image = MapImage(file);
    ApplyFixups(image);
    BindImports(image);
    return image;
}

void* FindExport(unsigned char* image, const char* name) noexcept {
    const unsigned char* const directory = Directory(image, 0);
    const unsigned char* const functions = image + U32(directory + 28);
    const unsigned char* const names = image + U32(directory + 32);
    const unsigned char* const ordinals = image + U32(directory + 36);
    for (std::uint32_t index = 0; index < U32(directory + 24); ++index) {
        if (AreEqual(TextAt(image + U32(names + 4 * index)), name)) {
            return image + U32(functions + 4 * U16(ordinals + 2 * index));
        }
    }
    Fail("an export is missing");
}

void* EntryPoint(unsigned char* image) noexcept {
    return image + U32(OptionalHeader(image) + 16);
}

}  // namespace arm
