#include "GuestMemory.h"

#include <stdexcept>

namespace emulation {

namespace {

constexpr std::uint32_t kPage = 0x1000;

}  // namespace

std::uint32_t GuestMemory::Allocate(std::uint32_t size, Rights rights, unsigned shift) {
    constexpr std::uint32_t kBefore = 64;
    const std::uint32_t pages = (kBefore + shift + size + kPage - 1) / kPage + 1;
    if (size > kSize || pages * kPage > kStart + kSize - next_) {
        throw std::runtime_error("the test handed out more memory than there is");
    }
    const std::uint32_t address = next_ + kBefore + shift;
    next_ += pages * kPage;
    blocks_[address] = {size, rights};
    for (std::uint32_t offset = 0; offset < size; ++offset) {
        *At(address + offset) = Pattern(offset);
    }
    return address;
}

bool GuestMemory::Free(std::uint32_t address) {
    return blocks_.erase(address) == 1;
}

void GuestMemory::TakeBack(std::uint32_t address) {
    if (blocks_.empty() || blocks_.rbegin()->first != address) {
        throw std::runtime_error("not the last block");
    }
    blocks_.erase(address);
    next_ = address / kPage * kPage;
}

bool GuestMemory::Allows(std::uint32_t address, std::uint32_t size, bool isWrite) const {
    auto behind = blocks_.upper_bound(address);
    if (behind == blocks_.begin()) {
        return false;
    }
    const auto& [start, block] = *--behind;
    const std::uint32_t offset = address - start;
    return offset <= block.size && size <= block.size - offset &&
           (!isWrite || block.rights == Rights::ReadWrite);
}

std::vector<std::uint32_t> GuestMemory::Blocks() const {
    std::vector<std::uint32_t> addresses;
    for (const auto& entry : blocks_) {
        addresses.push_back(entry.first);
    }
    return addresses;
}

std::uint32_t GuestMemory::WordAt(std::uint32_t address) const {
    std::uint32_t word = 0;
    for (unsigned index = 0; index < 4; ++index) {
        word |= std::uint32_t{bytes_.at(address - kStart + index)} << (8 * index);
    }
    return word;
}

void GuestMemory::PutWord(std::uint32_t address, std::uint32_t word) {
    for (unsigned index = 0; index < 4; ++index) {
        *At(address + index) = static_cast<std::uint8_t>(word >> (8 * index));
    }
}

}  // namespace emulation
