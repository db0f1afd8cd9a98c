#include "ArmSystem.h"

namespace arm {

namespace {

long Call(long number, long first, long second, long third) noexcept {
    register long r7 asm("r7") = number;
    register long r0 asm("r0") = first;
    register long r1 asm("r1") = second;
    register long r2 asm("r2") = third;
    asm volatile("svc 0" : "+r"(r0) : "r"(r7), "r"(r1), "r"(r2) : "memory");
    return r0;
}

/// As Call, for mmap2 alone, which takes six arguments.
long MapMemory(std::size_t size) noexcept {
    register long r7 asm("r7") = 192;
    register long r0 asm("r0") = 0;
    register long r1 asm("r1") = static_cast<long>(size);
    register long r2 asm("r2") = 7;     // read, write, execute
    register long r3 asm("r3") = 0x22;  // private, of no file
    register long r4 asm("r4") = -1;
    register long r5 asm("r5") = 0;
    asm volatile("svc 0"
                 : "+r"(r0)
                 : "r"(r7), "r"(r1), "r"(r2), "r"(r3), "r"(r4), "r"(r5)
                 : "memory");
    return r0;
}

}  // namespace

void Exit(int status) noexcept {
    for (;;) {
        Call(1, status, 0, 0);
    }
}

int Open(const char* path) noexcept {
    return static_cast<int>(Call(5, reinterpret_cast<long>(path), 0, 0));
}

int Read(int file, void* bytes, std::size_t size) noexcept {
    return static_cast<int>(Call(3, file, reinterpret_cast<long>(bytes), static_cast<long>(size)));
}

int Write(int file, const void* bytes, std::size_t size) noexcept {
    return static_cast<int>(Call(4, file, reinterpret_cast<long>(bytes), static_cast<long>(size)));
}

void* Allocate(std::size_t size) noexcept {
    const long address = MapMemory(size);
    if (address < 0 && address > -4096) {
        Fail("no memory");
    }
    return reinterpret_cast<void*>(address);
}

void Fail(const char* line) noexcept {
    std::size_t length = 0;
    while (line[length] != '\0') {
        ++length;
    }
    Write(2, line, length);
    Write(2, "\n", 1);
    Exit(1);
}

}  // namespace arm
