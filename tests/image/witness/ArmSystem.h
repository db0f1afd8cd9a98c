#pragma once

#include <cstddef>
#include <cstdint>

/// The few calls of the ARM Linux kernel that a program without a library needs.
namespace arm {

[[noreturn]] void Exit(int status) noexcept;
int Open(const char* path) noexcept;
int Read(int file, void* bytes, std::size_t size) noexcept;
int Write(int file, const void* bytes, std::size_t size) noexcept;

/// Cleared memory that can be executed; ends the program when there is none.
void* Allocate(std::size_t size) noexcept;

/// Ends the program with a line on standard error.
[[noreturn]] void Fail(const char* line) noexcept;

}  // namespace arm
