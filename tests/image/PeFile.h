#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace emulation {

using Bytes = std::vector<std::uint8_t>;

struct PeSection {
    std::string name;
    std::uint32_t rva = 0;
    std::uint32_t size = 0;
    std::uint32_t characteristics = 0;
    std::uint32_t fileOffset = 0;
    std::uint32_t fileSize = 0;

    bool IsExecutable() const { return (characteristics & 0x20000000U) != 0; }
    bool IsWritable() const { return (characteristics & 0x80000000U) != 0; }
};

struct PeImport {
    std::string library;
    std::string function;
    std::uint32_t word = 0;  ///< RVA of the word that takes the function's address
};

/// An entry of the table of functions, by which the device's system unwinds the stack.
struct PeFunction {
    std::uint32_t rva = 0;
    std::uint32_t prologLength = 0;  ///< in instructions
    std::uint32_t length = 0;        ///< in instructions
    bool hasWholeWords = false;      ///< instructions of 32 bits
    bool hasHandler = false;
};

/// A library file as a loader sees it. Shares no code with the writer of the device's image.
struct PeFile {
    std::uint32_t machine = 0;
    std::uint32_t base = 0;
    std::uint32_t entry = 0;
    std::uint32_t size = 0;  ///< of the image in memory
    std::vector<PeSection> sections;
    std::vector<PeImport> imports;
    std::map<std::string, std::uint32_t> exports;  ///< RVA by name
    std::vector<PeFunction> functions;             ///< in the order of the table
    std::vector<std::uint32_t> fixups;             ///< RVAs of the words that move with the image
    Bytes image;                                   ///< headers and sections as mapped, unmoved

    std::uint32_t WordAt(std::uint32_t rva) const;
    std::string TextAt(std::uint32_t rva) const;
};

/// Reads and maps a library file. Throws std::runtime_error for one that no loader would take.
PeFile ReadPe(const Bytes& file);

constexpr std::uint32_t kMachineArm = 0x01C0;
constexpr std::uint32_t kMachineX86 = 0x014C;

}  // namespace emulation
