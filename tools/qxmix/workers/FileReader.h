#pragma once

#include "ChildProcess.h"
#include "Worker.h"

#include <functional>
#include <memory>
#include <string>

namespace qxmix {

/// Reads files in a child process, since a file system that does not answer (one of another
/// machine) holds up for good whoever asks it.
class FileReader {
public:
    /// Reads a file or throws InputError.
    using Reading = std::function<std::string(const std::string& name)>;

    /// @param deadline  see kLastShare: reading takes next to no processor time. It may take two
    /// seconds in any case.
    FileReader(Reading reading, Milliseconds deadline);

    /// @throw InputError as the reading does, and when it takes too long; Interruption after
    /// Ctrl-C.
    std::string Read(const std::string& name);

private:
    Reading reading_;
    Milliseconds longest_;
    std::unique_ptr<ChildProcess> child_;  // null: none has been needed so far
};

}  // namespace qxmix
