#pragma once

#include <string>
#include <vector>

namespace qxmix {

/// Writes to standard output and makes sure that it arrived.
///
/// @throw WorkError when it did not; a closed pipe ends the tool silently instead.
void WriteStandardOutput(const std::string& text);

/// Writes one line to standard error, with the tool's name before it.
void Complain(const std::string& line);

/// A file to write and the option that names it; an empty name: none.
struct NamedOutput {
    const char* option;
    std::string file;
};

/// @throw InputError when two of them would be written to one place.
void RequireDifferentFiles(const std::vector<NamedOutput>& outputs);

/// Output files that appear all together, or not at all.
///
/// Each is written beside its place first; until Commit the files of these names are as they were.
/// What is not committed is removed.
class OutputFiles {
public:
    OutputFiles() = default;
    OutputFiles(const OutputFiles&) = delete;
    OutputFiles& operator=(const OutputFiles&) = delete;
    ~OutputFiles();

    /// @param file  a name in a folder that can be written to, or a device; empty: nothing to
    /// write.
    /// @throw WorkError
    void Add(const std::string& file, const std::string& content);

    /// @throw WorkError
    void Commit();

private:
    struct Staged {
        std::string place;
        std::string beside;
    };

    std::vector<Staged> staged_;
};

/// Appends to a file in one piece.
///
/// @throw WorkError
void AppendToFile(const std::string& file, const std::string& content);

}  // namespace qxmix
