#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

namespace qxmix {

/// An empty folder of a test's own as long as it lives: other tests run beside it.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "qxmix-XXXXXX").string();
        path_ = mkdtemp(name.data());
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() { std::filesystem::remove_all(path_); }

    const std::filesystem::path& Path() const { return path_; }

    /// The name of a file in it.
    std::string Name(const std::string& file) const { return (path_ / file).string(); }

private:
    std::filesystem::path path_;
};

}  // namespace qxmix
