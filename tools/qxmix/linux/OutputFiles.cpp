#include "files/Output.h"

#include "errors/Errors.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace qxmix {

namespace {

namespace fs = std::filesystem;

constexpr mode_t kUsualMode = 0666;

[[noreturn]] void FailToWrite(const std::string& file) {
    throw WorkError(file + ": cannot be written: " + std::strerror(errno));
}

/// A file that is open for writing.
class WritableFile {
public:
    WritableFile(const std::string& path, int flags, const std::string& nameInErrors)
        : name_(nameInErrors),
          descriptor_(open(path.c_str(), O_WRONLY | O_CLOEXEC | flags, kUsualMode)) {
        if (descriptor_ < 0) {
            FailToWrite(name_);
        }
    }
    WritableFile(const WritableFile&) = delete;
    WritableFile& operator=(const WritableFile&) = delete;
    ~WritableFile() {
        if (descriptor_ >= 0) {
            close(descriptor_);
        }
    }

    int Descriptor() const { return descriptor_; }

    void Write(const std::string& content) {
        std::size_t written = 0;
        while (written < content.size()) {
            const ssize_t more =
                write(descriptor_, content.data() + written, content.size() - written);
            if (more < 0 && errno != EINTR) {
                FailToWrite(name_);
            }
            written += more < 0 ? 0 : static_cast<std::size_t>(more);
        }
    }

    void Close() {
        if (close(std::exchange(descriptor_, -1)) != 0) {
            FailToWrite(name_);
        }
    }

private:
    std::string name_;
    int descriptor_;
};

/// Where a name leads; a link stays a link when its file is replaced.
std::string FollowLinks(const std::string& file) {
    std::error_code error;
    const fs::path place = fs::weakly_canonical(file, error);
    return error ? file : place.string();
}

}  // namespace

OutputFiles::~OutputFiles() {
    for (const Staged& staged : staged_) {
        unlink(staged.beside.c_str());
    }
}

void OutputFiles::Add(const std::string& file, const std::string& content) {
    if (file.empty()) {
        return;
    }
    const std::string place = FollowLinks(file);
    struct stat there {};
    const bool isThere = stat(place.c_str(), &there) == 0;
    if (isThere && !S_ISREG(there.st_mode)) {
        WritableFile device(place, 0, file);
        device.Write(content);
        device.Close();
        return;
    }
    const std::string beside = place + ".part" + std::to_string(getpid());
    WritableFile part(beside, O_CREAT | O_TRUNC, file);
    staged_.push_back({place, beside});
    if (isThere && fchmod(part.Descriptor(), there.st_mode & 07777U) != 0) {
        FailToWrite(file);
    }
    part.Write(content);
    part.Close();
}

void OutputFiles::Commit() {
    while (!staged_.empty()) {
        if (std::rename(staged_.front().beside.c_str(), staged_.front().place.c_str()) != 0) {
            FailToWrite(staged_.front().place);
        }
        staged_.erase(staged_.begin());
    }
}

void AppendToFile(const std::string& file, const std::string& content) {
    WritableFile appended(file, O_CREAT | O_APPEND, file);
    struct stat before {};
    const bool canBeCut = fstat(appended.Descriptor(), &before) == 0 && S_ISREG(before.st_mode);
    try {
        appended.Write(content);
        appended.Close();
    } catch (const WorkError&) {
        // A full disk takes the first half of a line, which nobody could read back.
        if (canBeCut && truncate(file.c_str(), before.st_size) != 0) {
            throw WorkError(file + ": holds a part of a line at its end: " + std::strerror(errno));
        }
        throw;
    }
}

}  // namespace qxmix
