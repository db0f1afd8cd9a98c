#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace qxmix {

/// Writes to standard output and makes sure that it arrived.
///
/// @throw WorkError when it did not; a closed pipe ends the tool silently instead.
void WriteStandardOutput(const std::string& text);

/// Takes a content part by part.
using TakePart = std::function<void(const std::string& part)>;

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
/// Each is written beside its place first, under a name that nobody can foresee; until Commit the
/// files of these names are as they were. What is not committed is removed, also when a signal ends
/// the tool.
class OutputFiles {
public:
    OutputFiles();
    OutputFiles(const OutputFiles&) = delete;
    OutputFiles& operator=(const OutputFiles&) = delete;
    ~OutputFiles();

    /// @param file  a name in a folder that can be written to, or a device; empty: nothing to
    /// write. What is there already has to be writable, though it is replaced.
    /// @throw WorkError
    void Add(const std::string& file, const std::string& content);

    /// @param write  gives the content part by part.
    void Add(const std::string& file, const std::function<void(const TakePart& take)>& write);

    /// @throw WorkError
    void Commit();

private:
    class Staged;

    std::vector<std::unique_ptr<Staged>> staged_;
};

}  // namespace qxmix
