#pragma once

#include <cstdint>
#include <new>
#include <unordered_map>
#include <utility>

/// Objects that callers hold by a handle: a number that is never an address, so that a foreign or
/// an old handle can be looked up, and refused, without touching memory.
///
/// Not safe under threads by itself.
template <typename Object>
class HandleTable {
public:
    /// @param first    number of the first handle; the next ones follow in steps of four.
    /// @param handles  how many there are before the first comes again.
    explicit HandleTable(std::uint32_t first, std::uint32_t handles = 0x01000000) noexcept
        : first_(first), handles_(handles), next_(first) {}

    /// @throws std::bad_alloc also when every handle is in use.
    void* Insert(Object object) {
        if (objects_.size() == handles_) {
            throw std::bad_alloc();
        }
        while (objects_.count(next_) != 0) {
            Advance();
        }
        const std::uintptr_t number = next_;
        objects_.emplace(number, std::move(object));
        // A number comes again only after all others: an old handle stays wrong for long.
        Advance();
        // NOLINTNEXTLINE(performance-no-int-to-ptr): a handle is a number in the shape of a pointer
        return reinterpret_cast<void*>(number);
    }

    /// @return the object, valid until the next Insert or Erase, or null for an unknown handle.
    const Object* Find(const void* handle) const noexcept {
        const auto found = objects_.find(reinterpret_cast<std::uintptr_t>(handle));
        return found == objects_.end() ? nullptr : &found->second;
    }
    Object* Find(const void* handle) noexcept {
        const auto found = objects_.find(reinterpret_cast<std::uintptr_t>(handle));
        return found == objects_.end() ? nullptr : &found->second;
    }

    bool Erase(const void* handle) noexcept {
        return objects_.erase(reinterpret_cast<std::uintptr_t>(handle)) != 0;
    }

    std::uint32_t Size() const noexcept { return static_cast<std::uint32_t>(objects_.size()); }

    /// Forgets every object; the numbers go on, so that the old handles stay wrong.
    void Clear() noexcept { objects_.clear(); }

private:
    static constexpr std::uintptr_t kStep = 4;

    void Advance() noexcept {
        next_ += kStep;
        next_ = next_ == first_ + handles_ * kStep ? first_ : next_;
    }

    std::uintptr_t first_;
    std::uintptr_t handles_;
    std::uintptr_t next_;
    std::unordered_map<std::uintptr_t, Object> objects_;
};
