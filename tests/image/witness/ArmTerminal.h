#pragma once

#include <cstdint>

/// What the device's system and its XFS manager offer, as far as the library imports it.
namespace arm {

/// Address of a function by name, or null.
void* FindFunction(const char* name) noexcept;

/// The recorded error code, and how many bytes it has; forgotten by TakeErrorCode.
void TakeErrorCode(unsigned char* code) noexcept;

bool AreEqual(const char* left, const char* right) noexcept;

}  // namespace arm
