#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

/// Stands between the module's objects and the allocator as long as it lives (the linker leads
/// their malloc and free here): fills new memory, fails one call, and writes down every call.
class Allocator {
public:
    /// What fills memory that nobody has written.
    static constexpr unsigned char kUnwrittenByte = 0x9C;

    Allocator();
    ~Allocator();
    Allocator(const Allocator&) = delete;
    Allocator& operator=(const Allocator&) = delete;

    /// Lets one allocation fail, 1 being the next; every other one succeeds.
    void FailCall(unsigned n) { callsToFailure_ = n; }

    bool TakesFailure() { return callsToFailure_ != 0 && --callsToFailure_ == 0; }

    std::vector<std::size_t> asked;  ///< bytes, failed calls included
    std::vector<const void*> freed;

private:
    unsigned callsToFailure_ = 0;
};

/// Whether memory still holds what the allocator left in it.
inline bool IsUnwritten(const void* memory, std::size_t size) {
    const auto* const bytes = static_cast<const unsigned char*>(memory);
    for (std::size_t index = 0; index < size; ++index) {
        if (bytes[index] != Allocator::kUnwrittenByte) {
            return false;
        }
    }
    return true;
}
