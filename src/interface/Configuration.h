#pragma once

#include "LittleEndian.h"

/// Converts decimal text as the system's own conversion of wide text to a number does.
///
/// @param text    characters; white space (U+0009 to U+000D, U+0020), an optional sign, digits 0 to
///   9; the first other character ends the number.
/// @param length  most characters to read; a 0 before that ends the text.
/// @return the number's two's complement bits; text that is no number gives 0, and a number beyond
///   the signed 32-bit range the nearest end of that range.
std::uint32_t ParseDecimal(const u16le* text, unsigned length) noexcept;
