#include <cstddef>

/// What compiled code takes from a C++ runtime and the device's system library may not have.
///
/// The system library is known to export memory copy and set, malloc and free: those are imported.
/// A name that it lacked would keep the whole module from being loaded, so the rest is here.
extern "C" {
int memcmp(const void* left, const void* right, std::size_t size) noexcept;
std::size_t strlen(const char* text) noexcept;
[[noreturn]] void __cxa_pure_virtual() noexcept;
}

int memcmp(const void* left, const void* right, std::size_t size) noexcept {
    const auto* const first = static_cast<const unsigned char*>(left);
    const auto* const second = static_cast<const unsigned char*>(right);
    for (std::size_t index = 0; index < size; ++index) {
        if (first[index] != second[index]) {
            return first[index] < second[index] ? -1 : 1;
        }
    }
    return 0;
}

std::size_t strlen(const char* text) noexcept {
    std::size_t length = 0;
    while (text[length] != '\0') {
        ++length;
    }
    return length;
}

/// Where the slots of an object end up that a destroyed object no longer has: the device has no
/// runtime that would report such a call, so it ends at an instruction that is none.
void __cxa_pure_virtual() noexcept {
    __builtin_trap();
}
