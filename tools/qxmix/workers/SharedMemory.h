#pragma once

#include <cstddef>
#include <utility>

namespace qxmix {

/// Memory that the tool shares with the children made after it; all zero at first.
class SharedMemory {
public:
    /// @throw WorkError when the system has none.
    explicit SharedMemory(std::size_t size);
    SharedMemory(SharedMemory&& other) noexcept
        : bytes_(std::exchange(other.bytes_, nullptr)), size_(other.size_) {}
    SharedMemory(const SharedMemory&) = delete;
    SharedMemory& operator=(const SharedMemory&) = delete;
    ~SharedMemory();

    void* Bytes() const { return bytes_; }

private:
    void* bytes_;  // null: another object has it
    std::size_t size_;
};

}  // namespace qxmix
