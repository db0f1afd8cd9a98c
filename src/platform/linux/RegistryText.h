#pragma once

#include "RegistryContent.h"

#include <cstdint>
#include <string>
#include <string_view>

/// Thrown by the reader and the writer of registry files.
struct RegistryTextFailure {
    std::uint32_t line;   ///< from 1; 0 when it is about the text as a whole
    std::string message;  ///< one clause in UTF-8
};

/// Reads a whole registry file into content that starts with nothing but the roots.
///
/// The first line is REGEDIT4 or Windows Registry Editor Version 5.00; the bytes are UTF-8, or
/// UTF-16LE with its mark. Then come key lines, each with the values below it:
///   [HKEY_LOCAL_MACHINE\A\B]     a key; keys above it are created too
///   [-HKEY_LOCAL_MACHINE\A]      removes a key with all below it
///   "name"="text"                REG_SZ; \\ and \" stand for a backslash and a quotation mark
///   @=dword:0000000a             REG_DWORD, here the key's own value
///   "name"=hex:00,01,\           REG_BINARY; a backslash goes on in the next line
///   "name"=hex(7):00,00          the type in hexadecimal, and its bytes
///   "name"=-                     removes a value
/// In a REGEDIT4 file the bytes of hex(1), hex(2) and hex(7) are 8-bit text of code page 1252.
/// Blank lines, and what follows a semicolon outside of text, count for nothing.
///
/// @throws RegistryTextFailure for the first wrong line.
RegistryContent ReadRegistryText(std::string_view bytes);

/// Writes content as version 5.00 in UTF-16LE with mark, lines ended by CR LF; reading and
/// writing it again gives the same bytes. REG_SZ bytes that are not one terminated text without
/// line break are written as hex(1) as they are.
///
/// @throws RegistryTextFailure for a name with a line break, which the format cannot hold.
std::string WriteRegistryText(const RegistryContent& content);
