#pragma once

#include "RegistryLines.h"

#include <optional>

/// Reads text between quotation marks, the first of which comes next.
///
/// @param what  names the text in a failure: "value name".
std::u16string ReadQuotedText(RegistryLines* lines, const char* what);

/// Reads what stands behind the '=' of a value, and the lines in which its bytes go on.
///
/// @param hasNarrowText  whether the bytes of hex(1), hex(2) and hex(7) are 8-bit text.
/// @return the value, or nothing for '-', which removes one.
std::optional<RegistryValue> ReadValue(RegistryLines* lines, bool hasNarrowText);
