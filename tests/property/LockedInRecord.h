#pragma once

#include <cstddef>
#include <cstdint>
#include <sys/mman.h>
#include <unistd.h>

namespace property {

enum class Against { Start, End };

/// A page between two that nobody may touch, with a record at its start or at its end.
template <std::size_t kSize>
class LockedInRecord {
public:
    explicit LockedInRecord(Against against) : page_(static_cast<std::size_t>(getpagesize())) {
        all_ = static_cast<std::uint8_t*>(
            mmap(nullptr, 3 * page_, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
        mprotect(all_ + page_, page_, PROT_READ | PROT_WRITE);
        at_ = against == Against::Start ? page_ : 2 * page_ - kSize;
    }
    LockedInRecord(const LockedInRecord&) = delete;
    LockedInRecord& operator=(const LockedInRecord&) = delete;
    ~LockedInRecord() { munmap(all_, 3 * page_); }

    volatile std::uint8_t& operator[](std::ptrdiff_t index) { return Bytes()[index]; }
    std::uint8_t* Bytes() { return all_ + at_; }

private:
    std::size_t page_;
    std::uint8_t* all_ = nullptr;
    std::size_t at_ = 0;
};

}  // namespace property
