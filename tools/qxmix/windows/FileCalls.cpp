#include "files/FileCalls.h"

#include "WindowsApi.h"

#include <algorithm>
#include <climits>
#include <cstdio>
#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>

namespace qxmix {

namespace {

constexpr int kFlags = _O_BINARY | _O_NOINHERIT;

unsigned AtMost(std::size_t size) {
    return static_cast<unsigned>(std::min<std::size_t>(size, INT_MAX));
}

}  // namespace

int OpenThere(const std::string& file) {
    return _open(file.c_str(), _O_WRONLY | kFlags);
}

int OpenToAppend(const std::string& file) {
    return _open(file.c_str(), _O_RDWR | _O_CREAT | _O_APPEND | kFlags, _S_IREAD | _S_IWRITE);
}

std::ptrdiff_t ReadBytes(int descriptor, char* bytes, std::size_t size) {
    return _read(descriptor, bytes, AtMost(size));
}

std::ptrdiff_t WriteBytes(int descriptor, const char* bytes, std::size_t size) {
    return _write(descriptor, bytes, AtMost(size));
}

int SynchroniseFile(int descriptor) {
    return _commit(descriptor);
}

void LockFile(int descriptor) {
    // A byte far behind the content stands for the whole, so that readers are not kept out.
    OVERLAPPED place{};
    place.OffsetHigh = 0x40000000;
    LockFileEx(reinterpret_cast<HANDLE>(_get_osfhandle(descriptor)), LOCKFILE_EXCLUSIVE_LOCK, 0, 1,
               0, &place);
}

std::int64_t BytesAhead(int descriptor) {
    struct _stat64 state {};
    if (_fstat64(descriptor, &state) != 0 || (state.st_mode & _S_IFREG) == 0) {
        return -1;
    }
    const std::int64_t place = _telli64(descriptor);
    return place < 0 ? -1 : std::max<std::int64_t>(state.st_size - place, 0);
}

std::int64_t SizeOfFile(int descriptor) {
    return _lseeki64(descriptor, 0, SEEK_END);
}

int CutFile(int descriptor, std::int64_t size) {
    return _chsize_s(descriptor, size) == 0 ? 0 : -1;
}

int CloseFile(int descriptor) {
    return _close(descriptor);
}

}  // namespace qxmix
