#include "OutputFolder.h"

#include "files/WritableFile.h"

#include <fcntl.h>
#include <unistd.h>

namespace qxmix {

OutputFolder::OutputFolder(const std::string& path, const std::string& nameInErrors)
    : descriptor_(open(path.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC)) {
    if (descriptor_ < 0) {
        FailToWrite(nameInErrors);
    }
}

OutputFolder::~OutputFolder() {
    close(descriptor_);
}

bool OutputFolder::Holds(const std::string& name, const FileState& expected) const {
    FileState there{};
    return fstatat(descriptor_, name.c_str(), &there, AT_SYMLINK_NOFOLLOW) == 0 &&
           there.st_dev == expected.st_dev && there.st_ino == expected.st_ino;
}

void OutputFolder::Synchronise() const {
    const int readable = openat(descriptor_, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (readable >= 0) {
        fsync(readable);
        close(readable);
    }
}

}  // namespace qxmix
