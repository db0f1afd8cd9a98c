#pragma once

/// In front of every source of a program that holds all its mutants: which one is switched on. See
/// switches.py.

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>

/// Read from the environment when the program starts.
struct Mutants {
    long active = -1;
    volatile std::uint64_t* reached = nullptr;  ///< by number: how often the mutant is come to

    Mutants() noexcept {
        if (const char* number = std::getenv("QXMIX_MUTANT")) {
            active = std::strtol(number, nullptr, 10);
        }
        const char* name = std::getenv("QXMIX_MUTANTS_REACHED");
        const int file = name != nullptr ? open(name, O_RDWR | O_CLOEXEC) : -1;
        if (file >= 0) {
            const auto count = static_cast<std::size_t>(lseek(file, 0, SEEK_END));
            void* bytes = mmap(nullptr, count, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
            reached = bytes != MAP_FAILED ? static_cast<volatile std::uint64_t*>(bytes) : nullptr;
            close(file);
        }
    }
};
inline const Mutants theMutants;

/// Never while the compiler calculates.
constexpr bool MutantIs(long number) noexcept {
    if (__builtin_is_constant_evaluated()) {
        return false;
    }
    if (theMutants.reached != nullptr) {
        theMutants.reached[number] = theMutants.reached[number] + 1;
    }
    return theMutants.active == number;
}
