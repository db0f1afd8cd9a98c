#include "WritableFile.h"

#include "errors/Errors.h"

#include <cerrno>
#include <cstring>
#include <unistd.h>
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
        close(descriptor_);
    }
}

void WritableFile::Write(const std::string& content) {
    std::size_t written = 0;
    while (written < content.size()) {
        const ssize_t more = write(descriptor_, content.data() + written, content.size() - written);
        if (more < 0 && errno != EINTR) {
            FailToWrite(name_);
        }
        written += more < 0 ? 0 : static_cast<std::size_t>(more);
    }
}

void WritableFile::Synchronise() {
    // Not every file system can; what it says of a full or broken disk counts.
    if (fsync(descriptor_) != 0 && errno != EINVAL && errno != EROFS) {
        FailToWrite(name_);
    }
}

void WritableFile::Close() {
    if (close(std::exchange(descriptor_, -1)) != 0) {
        FailToWrite(name_);
    }
}

}  // namespace qxmix
