#include "files/LineFile.h"

#include "WindowsApi.h"
#include "WritableFile.h"
#include "errors/Errors.h"
#include "files/LineCount.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <io.h>
#include <sys/stat.h>

namespace qxmix {

namespace {

bool IsDevice(const std::string& file) {
    std::error_code error;
    return std::filesystem::exists(file, error) && !std::filesystem::is_regular_file(file, error);
}

/// Held until the file is closed. A byte far behind the content stands for the whole, so that
/// readers are not kept out.
void Lock(const WritableFile& file) {
    OVERLAPPED place{};
    place.OffsetHigh = 0x40000000;
    LockFileEx(reinterpret_cast<HANDLE>(_get_osfhandle(file.Descriptor())), LOCKFILE_EXCLUSIVE_LOCK,
               0, 1, 0, &place);
}

LineCount CountLines(const WritableFile& file) {
    LineCount lines;
    char block[65536];
    int size = 0;
    while ((size = _read(file.Descriptor(), block, sizeof(block))) > 0) {
        lines.Add(block, static_cast<std::size_t>(size));
    }
    if (size < 0) {
        FailToWrite(file.Name());
    }
    return lines;
}

}  // namespace

void AppendLines(const std::string& file, const LinesBehind& lines) {
    constexpr int kFlags = _O_APPEND | _O_BINARY | _O_NOINHERIT;
    if (IsDevice(file)) {
        WritableFile device(_open(file.c_str(), _O_WRONLY | kFlags), file);
        device.Write(lines(0));
        device.Close();
        return;
    }
    WritableFile appended(_open(file.c_str(), _O_RDWR | _O_CREAT | kFlags, _S_IREAD | _S_IWRITE),
                          file);
    Lock(appended);
    const LineCount there = CountLines(appended);
    const long long before = _lseeki64(appended.Descriptor(), 0, SEEK_END);
    try {
        appended.Write(there.Separator() + lines(there.Count()));
    } catch (const WorkError&) {
        // A full disk takes the first half of a line, which nobody could read back.
        if (_chsize_s(appended.Descriptor(), before) != 0) {
            throw WorkError(file + ": holds a part of a line at its end: " + std::strerror(errno));
        }
        throw;
    }
    appended.Close();
}

}  // namespace qxmix
