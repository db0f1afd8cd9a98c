#include "WritableFile.h"

#include "errors/Errors.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstring>
#include <io.h>
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
        _close(descriptor_);
    }
}

void WritableFile::Write(const std::string& content) {
    std::size_t written = 0;
    while (written < content.size()) {
        const std::size_t most = std::min<std::size_t>(content.size() - written, INT_MAX);
        const int more = _write(descriptor_, content.data() + written, static_cast<unsigned>(most));
        if (more <= 0) {
            FailToWrite(name_);
        }
        written += static_cast<std::size_t>(more);
    }
}

void WritableFile::Synchronise() {
    if (_commit(descriptor_) != 0) {
        FailToWrite(name_);
    }
}

void WritableFile::Close() {
    if (_close(std::exchange(descriptor_, -1)) != 0) {
        FailToWrite(name_);
    }
}

}  // namespace qxmix
