#include "PartFile.h"

#include "LastError.h"
#include "WindowsApi.h"
#include "errors/Errors.h"

#include <fcntl.h>
#include <filesystem>
#include <io.h>
#include <random>
#include <set>

namespace qxmix {

namespace {

struct Parts {
    SRWLOCK lock = SRWLOCK_INIT;
    std::set<std::string> paths;
};

Parts& TheParts() {
    static Parts& parts = *new Parts;
    return parts;
}

/// Ctrl-C comes in a thread of the system's.
class Locked {
public:
    explicit Locked(Parts& parts) : parts_(parts) { AcquireSRWLockExclusive(&parts_.lock); }
    Locked(const Locked&) = delete;
    Locked& operator=(const Locked&) = delete;
    ~Locked() { ReleaseSRWLockExclusive(&parts_.lock); }

private:
    Parts& parts_;
};

std::string PathBeside(const std::string& place) {
    std::random_device random;
    const std::string name =
        "qxmix-" + std::to_string(random()) + std::to_string(random()) + ".part";
    return (std::filesystem::path(place).parent_path() / name).string();
}

/// Shared for deletion, so that it can be removed while it is written.
int OpenNew(const std::string& path, const std::string& nameInErrors) {
    const HANDLE handle = CreateFileA(path.c_str(), GENERIC_WRITE, FILE_SHARE_DELETE, nullptr,
                                      CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        throw WorkError(nameInErrors + ": cannot be written: " + LastErrorText());
    }
    return _open_osfhandle(reinterpret_cast<intptr_t>(handle), _O_BINARY);
}

}  // namespace

PartFile::PartFile(const std::string& place)
    : place_(place), path_(PathBeside(place)), file_(OpenNew(path_, place), place) {
    Parts& parts = TheParts();
    const Locked locked(parts);
    parts.paths.insert(path_);
}

PartFile::~PartFile() {
    Parts& parts = TheParts();
    const Locked locked(parts);
    if (parts.paths.erase(path_) != 0) {
        DeleteFileA(path_.c_str());
    }
}

void PartFile::TakePlace() {
    Parts& parts = TheParts();
    const Locked locked(parts);
    if (MoveFileExA(path_.c_str(), place_.c_str(),
                    MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) == 0) {
        throw WorkError(place_ + ": cannot be written: " + LastErrorText());
    }
    parts.paths.erase(path_);
}

void RemovePartFiles() {
    Parts& parts = TheParts();
    const Locked locked(parts);
    for (const std::string& path : parts.paths) {
        DeleteFileA(path.c_str());
    }
}

}  // namespace qxmix
