#pragma once

#include <string>
#include <string_view>

/// Thrown when a file cannot be read or written.
struct FileFailure {
    bool isMissing;       ///< there is no such file
    std::string message;  ///< one clause: "cannot be read: Permission denied"
};

/// @return the bytes of the file. @throws FileFailure
std::string ReadWholeFile(const char* path);

/// Replaces a file by a new one that is written beside it first and gets its rights. What is no
/// ordinary file, such as a pipe or a device, is written to directly.
/// @throws FileFailure, the old file being whole
void ReplaceFile(const char* path, std::string_view bytes);
