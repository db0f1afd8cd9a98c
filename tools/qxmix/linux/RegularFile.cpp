#include "files/RegularFile.h"

#include "errors/Errors.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace qxmix {

namespace {

/// Descriptor of a file that is open for reading.
class ReadableFile {
public:
    explicit ReadableFile(const std::string& name)
        // Without waiting for whoever writes into a pipe, or for a lease that another one holds.
        : descriptor_(open(name.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC)) {
        if (descriptor_ < 0) {
            throw InputError(name + ": cannot be opened: " + std::strerror(errno));
        }
    }
    ReadableFile(const ReadableFile&) = delete;
    ReadableFile& operator=(const ReadableFile&) = delete;
    ~ReadableFile() { close(descriptor_); }

    bool IsRegular() const {
        struct stat state {};
        return fstat(descriptor_, &state) == 0 && S_ISREG(state.st_mode);
    }

    ssize_t Read(char* block, std::size_t size) const { return read(descriptor_, block, size); }

private:
    int descriptor_;
};

}  // namespace

std::string ReadRegularFile(const std::string& name, std::size_t mostBytes) {
    const ReadableFile file(name);
    if (!file.IsRegular()) {
        throw InputError(name + ": no regular file; expected one");
    }
    std::string content;
    char block[65536];
    ssize_t size = 0;
    while ((size = file.Read(block, sizeof(block))) != 0) {
        if (size < 0 && errno != EINTR) {
            throw InputError(name + ": cannot be read: " + std::strerror(errno));
        }
        content.append(block, size < 0 ? 0 : static_cast<std::size_t>(size));
        if (content.size() > mostBytes) {
            throw InputError(name + ": more than " + std::to_string(mostBytes) +
                             " bytes; expected a smaller file");
        }
    }
    return content;
}

}  // namespace qxmix
