#pragma once

#include "files/WritableFile.h"

#include <string>
#include <sys/types.h>

namespace qxmix {

/// A file that is written under a name that nobody can foresee, until it takes its place.
///
/// Until then it goes with the object, and with the tool when a signal ends that.
class PartFile {
public:
    /// @param folder        descriptor of the folder; outlives the object.
    /// @param mode          as for open.
    /// @param nameInErrors  what the caller named.
    /// @throw WorkError
    PartFile(int folder, mode_t mode, const std::string& nameInErrors);
    PartFile(const PartFile&) = delete;
    PartFile& operator=(const PartFile&) = delete;

    WritableFile& File() { return file_; }

    /// Gives it its name in the folder, in the place of what has that now.
    ///
    /// @throw WorkError
    void MoveTo(const std::string& name);

private:
    /// Its line in the table of those that are being written.
    class Entry {
    public:
        Entry(int folder, const std::string& nameInErrors);
        Entry(const Entry&) = delete;
        Entry& operator=(const Entry&) = delete;
        ~Entry();

        const char* Name() const;
        void MoveTo(const std::string& name, const std::string& nameInErrors);

    private:
        std::size_t index_;
    };

    Entry entry_;
    WritableFile file_;
};

/// Removes all that are being written; for handlers of signals, before they end the tool.
void RemovePartFiles() noexcept;

}  // namespace qxmix
