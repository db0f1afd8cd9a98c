#pragma once

#include <string>

namespace qxmix {

/// Two hexadecimal digits a byte, lower case.
std::string HexText(const std::string& bytes);

/// @param hex  hexadecimal digits in pairs (see IsHex).
std::string BytesOfHex(const std::string& hex);

/// Whether the text is hexadecimal digits in pairs, or empty.
bool IsHex(const std::string& text);

}  // namespace qxmix
