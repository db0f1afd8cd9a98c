#pragma once

#include <string>
#include <sys/stat.h>

namespace qxmix {

using FileState = struct stat;

/// A folder by which its files are named from then on, whatever becomes of its own name.
class OutputFolder {
public:
    /// @param nameInErrors  what the caller named.
    /// @throw WorkError
    OutputFolder(const std::string& path, const std::string& nameInErrors);
    OutputFolder(const OutputFolder&) = delete;
    OutputFolder& operator=(const OutputFolder&) = delete;
    ~OutputFolder();

    int Descriptor() const { return descriptor_; }

    bool Holds(const std::string& name, const FileState& expected) const;

    /// New names outlive a power failure, where the file system can see to that.
    void Synchronise() const;

private:
    int descriptor_;
};

}  // namespace qxmix
