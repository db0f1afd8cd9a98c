#include "LineFile.h"

#include "FileCalls.h"
#include "LineCount.h"
#include "WritableFile.h"
#include "errors/Errors.h"

#include <cerrno>
#include <cstring>
#include <filesystem>

namespace qxmix {

namespace {

bool IsDevice(const std::string& file) {
    std::error_code error;
    return std::filesystem::exists(file, error) && !std::filesystem::is_regular_file(file, error);
}

LineCount CountLines(const WritableFile& file) {
    LineCount lines;
    char block[65536];
    std::ptrdiff_t size = 0;
    while ((size = ReadBytes(file.Descriptor(), block, sizeof(block))) > 0) {
        lines.Add(block, static_cast<std::size_t>(size));
    }
    if (size < 0) {
        FailToWrite(file.Name());
    }
    return lines;
}

void WriteOrCut(WritableFile& file, const std::string& content) {
    const std::int64_t before = SizeOfFile(file.Descriptor());
    if (before < 0) {
        FailToWrite(file.Name());
    }
    try {
        file.Write(content);
    } catch (const WorkError&) {
        // A full disk takes the first half of a line, which nobody could read back.
        if (CutFile(file.Descriptor(), before) != 0) {
            throw WorkError(file.Name() +
                            ": holds a part of a line at its end: " + std::strerror(errno));
        }
        throw;
    }
}

}  // namespace

void AppendLines(const std::string& file, const LinesBehind& lines) {
    if (IsDevice(file)) {
        WritableFile device(OpenThere(file), file);
        device.Write(lines(0));
        device.Close();
        return;
    }
    WritableFile appended(OpenToAppend(file), file);
    LockFile(appended.Descriptor());
    const LineCount there = CountLines(appended);
    WriteOrCut(appended, there.Separator() + lines(there.Count()));
    appended.Close();
}

}  // namespace qxmix
