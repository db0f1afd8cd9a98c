#pragma once

#include <string>

namespace qxmix {

/// @throw WorkError with what the system said last (errno).
[[noreturn]] void FailToWrite(const std::string& file);

/// A file that is open for writing.
class WritableFile {
public:
    /// @param descriptor    from open; below 0: it failed.
    /// @param nameInErrors  what the caller named.
    /// @throw WorkError
    WritableFile(int descriptor, std::string nameInErrors);
    WritableFile(const WritableFile&) = delete;
    WritableFile& operator=(const WritableFile&) = delete;
    ~WritableFile();

    int Descriptor() const { return descriptor_; }
    const std::string& Name() const { return name_; }

    /// Each throws WorkError when the system refuses.
    void Write(const std::string& content);
    void Synchronise();
    void Close();

private:
    std::string name_;
    int descriptor_;
};

}  // namespace qxmix
