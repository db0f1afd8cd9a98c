#pragma once

#include "files/WritableFile.h"

#include <string>

namespace qxmix {

/// A file that is written under a name that nobody can foresee, until it takes its place.
///
/// Until then it goes with the object, and with the tool when Ctrl-C ends that.
class PartFile {
public:
    /// @param place  that it will take.
    /// @throw WorkError
    explicit PartFile(const std::string& place);
    PartFile(const PartFile&) = delete;
    PartFile& operator=(const PartFile&) = delete;
    ~PartFile();

    WritableFile& File() { return file_; }

    /// @throw WorkError
    void TakePlace();

private:
    std::string place_;
    std::string path_;
    WritableFile file_;
};

/// Removes all that are being written, before the tool is ended; from any thread.
void RemovePartFiles();

}  // namespace qxmix
