#pragma once

#include <cstdint>
#include <map>
#include <vector>

namespace emulation {

/// What may be done with a block that the test hands to the module.
enum class Rights { Read, ReadWrite };

/// The memory that the test hands to the emulated module: blocks with nothing around them.
///
/// Every block lies at least a page away from the next, and a freed one is never handed out again,
/// so that each access outside a block, or to a freed one, is seen.
class GuestMemory {
public:
    static constexpr std::uint32_t kStart = 0x20000000;
    static constexpr std::uint32_t kSize = 0x00400000;

    GuestMemory() : bytes_(kSize) {}

    /// A block filled with a pattern.
    ///
    /// @param shift  how far it lies behind an address that is a multiple of 16.
    /// @return its address.
    std::uint32_t Allocate(std::uint32_t size, Rights rights, unsigned shift = 0);

    /// Takes a block back. Returns false when there is none at the address.
    bool Free(std::uint32_t address);

    /// Takes back the block that was handed out last, and its place too.
    void TakeBack(std::uint32_t address);

    /// Whether the module may read or write all of these bytes.
    bool Allows(std::uint32_t address, std::uint32_t size, bool isWrite) const;

    /// Blocks that are not freed, by address.
    std::vector<std::uint32_t> Blocks() const;
    std::uint32_t SizeOf(std::uint32_t address) const { return blocks_.at(address).size; }

    /// The bytes behind a guest address, for the test itself.
    std::uint8_t* At(std::uint32_t address) { return &bytes_.at(address - kStart); }
    std::uint32_t WordAt(std::uint32_t address) const;
    void PutWord(std::uint32_t address, std::uint32_t word);

    /// What a new block holds at an offset.
    static std::uint8_t Pattern(std::uint32_t offset) {
        return static_cast<std::uint8_t>(0xA5U ^ (offset * 29U));
    }

private:
    struct Block {
        std::uint32_t size;
        Rights rights;
    };

    std::vector<std::uint8_t> bytes_;
    std::map<std::uint32_t, Block> blocks_;
    std::uint32_t next_ = kStart;
};

}  // namespace emulation
