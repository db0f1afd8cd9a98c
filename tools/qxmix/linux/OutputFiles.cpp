#include "files/Output.h"

#include "FileModes.h"
#include "OutputFolder.h"
#include "PartFile.h"
#include "errors/Errors.h"
#include "files/FileCalls.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace qxmix {

namespace {

namespace fs = std::filesystem;

constexpr mode_t kAllModeBits = 07777;

/// What has this name already; nothing: none. It is opened and closed again, so that the system's
/// own rules hold for what may be written, and for links in folders that everybody may write to.
///
/// @throw WorkError
std::optional<FileState> WhatIsThere(const std::string& file) {
    FileState there{};
    if (lstat(file.c_str(), &there) != 0) {
        return std::nullopt;
    }
    if (stat(file.c_str(), &there) != 0) {
        if (errno == ENOENT) {
            throw WorkError(file + ": cannot be written: a link that leads to no file");
        }
        FailToWrite(file);
    }
    if (S_ISREG(there.st_mode)) {
        const WritableFile existing(
            open(file.c_str(), O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC), file);
        if (fstat(existing.Descriptor(), &there) != 0) {
            FailToWrite(file);
        }
    }
    return there;
}

/// Where a name leads; a link stays a link when its file is replaced.
fs::path FollowLinks(const std::string& file) {
    std::error_code error;
    const fs::path place = fs::weakly_canonical(file, error);
    return error ? fs::path(file) : place;
}

std::string FolderOf(const fs::path& place) {
    return place.has_parent_path() ? place.parent_path().string() : ".";
}

}  // namespace

/// A file that waits beside its place.
class OutputFiles::Staged {
public:
    Staged(const std::string& file, const std::optional<FileState>& there)
        : Staged(FollowLinks(file), file, there) {}

    void Write(const std::function<void(const TakePart& take)>& write) {
        write([this](const std::string& part) { part_.File().Write(part); });
        part_.File().Synchronise();
        part_.File().Close();
    }

    void Commit() {
        part_.MoveTo(name_);
        folder_.Synchronise();
    }

private:
    Staged(const fs::path& place, const std::string& file, const std::optional<FileState>& there)
        : name_(place.filename().string()), folder_(FolderOf(place), file),
          part_(folder_.Descriptor(), there ? kOwnersMode : kUsualMode, file) {
        if (there && !folder_.Holds(name_, *there)) {
            throw WorkError(file + ": cannot be written: its place changes meanwhile");
        }
        if (there && fchmod(part_.File().Descriptor(), there->st_mode & kAllModeBits) != 0) {
            FailToWrite(file);
        }
    }

    std::string name_;
    OutputFolder folder_;
    PartFile part_;
};

OutputFiles::OutputFiles() = default;
OutputFiles::~OutputFiles() = default;

void OutputFiles::Add(const std::string& file,
                      const std::function<void(const TakePart& take)>& write) {
    if (file.empty()) {
        return;
    }
    const std::optional<FileState> there = WhatIsThere(file);
    if (there && !S_ISREG(there->st_mode)) {
        WritableFile device(OpenThere(file), file);
        write([&device](const std::string& part) { device.Write(part); });
        device.Close();
        return;
    }
    staged_.push_back(std::make_unique<Staged>(file, there));
    staged_.back()->Write(write);
}

void OutputFiles::Commit() {
    while (!staged_.empty()) {
        staged_.front()->Commit();
        staged_.erase(staged_.begin());
    }
}

}  // namespace qxmix
