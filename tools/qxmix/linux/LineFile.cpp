#include "files/LineFile.h"

#include "WritableFile.h"
#include "errors/Errors.h"
#include "files/LineCount.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace qxmix {

namespace {

constexpr mode_t kUsualMode = 0666;

bool IsDevice(const std::string& file) {
    struct stat there {};
    return stat(file.c_str(), &there) == 0 && !S_ISREG(there.st_mode);
}

/// Held until the file is closed.
void Lock(const WritableFile& file) {
    while (flock(file.Descriptor(), LOCK_EX) != 0) {
        // A file system without locks is no reason not to write.
        if (errno != EINTR) {
            return;
        }
    }
}

LineCount CountLines(const WritableFile& file) {
    LineCount lines;
    char block[65536];
    ssize_t size = 0;
    while ((size = read(file.Descriptor(), block, sizeof(block))) != 0) {
        if (size < 0 && errno != EINTR) {
            FailToWrite(file.Name());
        }
        lines.Add(block, size < 0 ? 0 : static_cast<std::size_t>(size));
    }
    return lines;
}

void WriteOrCut(WritableFile& file, const std::string& content) {
    struct stat before {};
    if (fstat(file.Descriptor(), &before) != 0) {
        FailToWrite(file.Name());
    }
    try {
        file.Write(content);
    } catch (const WorkError&) {
        // A full disk takes the first half of a line, which nobody could read back.
        if (ftruncate(file.Descriptor(), before.st_size) != 0) {
            throw WorkError(file.Name() +
                            ": holds a part of a line at its end: " + std::strerror(errno));
        }
        throw;
    }
}

}  // namespace

void AppendLines(const std::string& file, const LinesBehind& lines) {
    constexpr int kFlags = O_APPEND | O_NOCTTY | O_CLOEXEC;
    if (IsDevice(file)) {
        WritableFile device(open(file.c_str(), O_WRONLY | kFlags), file);
        device.Write(lines(0));
        device.Close();
        return;
    }
    WritableFile appended(open(file.c_str(), O_RDWR | O_CREAT | kFlags, kUsualMode), file);
    Lock(appended);
    const LineCount there = CountLines(appended);
    WriteOrCut(appended, there.Separator() + lines(there.Count()));
    appended.Close();
}

}  // namespace qxmix
