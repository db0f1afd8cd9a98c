#include "files/FileCalls.h"

#include "FileModes.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace qxmix {

int OpenThere(const std::string& file) {
    return open(file.c_str(), O_WRONLY | O_NOCTTY | O_CLOEXEC);
}

int OpenToAppend(const std::string& file) {
    return open(file.c_str(), O_RDWR | O_CREAT | O_APPEND | O_NOCTTY | O_CLOEXEC, kUsualMode);
}

std::ptrdiff_t ReadBytes(int descriptor, char* bytes, std::size_t size) {
    ssize_t taken = 0;
    do {
        taken = read(descriptor, bytes, size);
    } while (taken < 0 && errno == EINTR);
    return taken;
}

std::ptrdiff_t WriteBytes(int descriptor, const char* bytes, std::size_t size) {
    ssize_t written = 0;
    do {
        written = write(descriptor, bytes, size);
    } while (written < 0 && errno == EINTR);
    return written;
}

int SynchroniseFile(int descriptor) {
    const int result = fsync(descriptor);
    return result != 0 && (errno == EINVAL || errno == EROFS) ? 0 : result;
}

void LockFile(int descriptor) {
    while (flock(descriptor, LOCK_EX) != 0 && errno == EINTR) {
    }
}

std::int64_t BytesAhead(int descriptor) {
    struct stat state {};
    if (fstat(descriptor, &state) != 0 || !S_ISREG(state.st_mode)) {
        return -1;
    }
    const off_t place = lseek(descriptor, 0, SEEK_CUR);
    return place < 0 ? -1 : std::max<std::int64_t>(state.st_size - place, 0);
}

std::int64_t SizeOfFile(int descriptor) {
    struct stat state {};
    return fstat(descriptor, &state) == 0 ? std::int64_t{state.st_size} : -1;
}

int CutFile(int descriptor, std::int64_t size) {
    return ftruncate(descriptor, static_cast<off_t>(size));
}

int CloseFile(int descriptor) {
    return close(descriptor);
}

}  // namespace qxmix
