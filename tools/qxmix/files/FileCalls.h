#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace qxmix {

/// The system's calls for files that are written, by the descriptors of the C library. Each gives
/// less than 0 when it fails, and says why in errno.

/// What is there already, for writing.
int OpenThere(const std::string& file);

/// A file to read and to append to, made when it is not there.
int OpenToAppend(const std::string& file);

std::ptrdiff_t ReadBytes(int descriptor, char* bytes, std::size_t size);
std::ptrdiff_t WriteBytes(int descriptor, const char* bytes, std::size_t size);

/// Brings what was written to the disk, where the file system can.
int SynchroniseFile(int descriptor);

/// Waits until nobody else has locked the file; held until it is closed. A file system without
/// locks is no reason not to write.
void LockFile(int descriptor);

/// What a regular file still holds behind the place where it is read; of anything else less than 0.
std::int64_t BytesAhead(int descriptor);

std::int64_t SizeOfFile(int descriptor);
int CutFile(int descriptor, std::int64_t size);
int CloseFile(int descriptor);

}  // namespace qxmix
