#include "WritableFile.h"

#include "FileCalls.h"
#include "errors/Errors.h"

#include <cerrno>
#include <cstring>
#include <utility>

namespace qxmix {

void FailToWrite(const std::string& file) {
    throw WorkError(file + ": cannot be written: " + std::strerror(errno));
}

WritableFile::WritableFile(int descriptor, std::string nameInErrors)
    : name_(std::move(nameInErrors)), descriptor_(descriptor) {
    if (descriptor_ < 0) {
        FailToWrite(name_);
    }
}

WritableFile::~WritableFile() {
    if (descriptor_ >= 0) {
        CloseFile(descriptor_);
    }
}

void WritableFile::Write(const std::string& content) {
    std::size_t written = 0;
    while (written < content.size()) {
        const std::ptrdiff_t more =
            WriteBytes(descriptor_, content.data() + written, content.size() - written);
        if (more < 0) {
            FailToWrite(name_);
        }
        written += static_cast<std::size_t>(more);
    }
}

void WritableFile::Synchronise() {
    if (SynchroniseFile(descriptor_) != 0) {
        FailToWrite(name_);
    }
}

void WritableFile::Close() {
    if (CloseFile(std::exchange(descriptor_, -1)) != 0) {
        FailToWrite(name_);
    }
}

}  // namespace qxmix
