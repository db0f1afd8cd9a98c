#include "WholeFile.h"

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace {

[[noreturn]] void FailWith(const char* what, int number) {
    throw FileFailure{number == ENOENT,
                      std::string(what) + ": " + std::generic_category().message(number)};
}

[[noreturn]] void FailReading() {
    FailWith("cannot be read", errno);
}

[[noreturn]] void FailWriting() {
    FailWith("cannot be written", errno);
}

/// An open file that is closed on every path.
class File {
public:
    explicit File(int descriptor) noexcept : descriptor_(descriptor) {}
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    ~File() {
        if (descriptor_ >= 0) {
            close(descriptor_);
        }
    }

    bool IsOpen() const noexcept { return descriptor_ >= 0; }
    int Descriptor() const noexcept { return descriptor_; }

    /// Closes it now, since a full disk may be told only then.
    bool Close() noexcept {
        const int descriptor = descriptor_;
        descriptor_ = -1;
        return close(descriptor) == 0;
    }

private:
    int descriptor_;
};

bool WriteAll(const File& file, std::string_view bytes) noexcept {
    while (!bytes.empty()) {
        const ssize_t written = write(file.Descriptor(), bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR) {
            return false;
        }
        bytes.remove_prefix(written < 0 ? 0 : static_cast<std::size_t>(written));
    }
    return true;
}

/// Creates a file of its own beside another one.
/// @param path  receives its path.
int CreateBeside(const std::string& other, std::string* path) {
    static std::atomic<unsigned> last{0};
    int descriptor = -1;
    do {
        *path = other + ".new-" + std::to_string(getpid()) + "-" + std::to_string(++last);
        descriptor = open(path->c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    } while (descriptor < 0 && errno == EEXIST);
    return descriptor;
}

void WriteDirectly(const char* path, std::string_view bytes) {
    File file(open(path, O_WRONLY | O_CLOEXEC));
    if (!file.IsOpen() || !WriteAll(file, bytes) || !file.Close()) {
        FailWriting();
    }
}

}  // namespace

std::string ReadWholeFile(const char* path) {
    const File file(open(path, O_RDONLY | O_CLOEXEC));
    if (!file.IsOpen()) {
        FailReading();
    }
    std::string bytes;
    char chunk[8192];
    for (;;) {
        const ssize_t got = read(file.Descriptor(), chunk, sizeof(chunk));
        if (got == 0) {
            return bytes;
        }
        if (got > 0) {
            bytes.append(chunk, static_cast<std::size_t>(got));
        } else if (errno != EINTR) {
            FailReading();
        }
    }
}

void ReplaceFile(const char* path, std::string_view bytes) {
    struct stat old = {};
    const bool exists = stat(path, &old) == 0;
    if (exists && !S_ISREG(old.st_mode)) {
        WriteDirectly(path, bytes);
        return;
    }
    // A link stays, and what it points to is replaced.
    const std::string target = exists ? std::filesystem::canonical(path).string() : path;
    std::string beside;
    File file(CreateBeside(target, &beside));
    if (!file.IsOpen()) {
        FailWriting();
    }
    const bool hasRights = !exists || fchmod(file.Descriptor(), old.st_mode & 07777U) == 0;
    if (!hasRights || !WriteAll(file, bytes) || !file.Close() ||
        rename(beside.c_str(), target.c_str()) != 0) {
        const int number = errno;
        unlink(beside.c_str());
        FailWith("cannot be written", number);
    }
}
