#pragma once

#include "commands/mix/RecordedLine.h"

#include <fstream>
#include <optional>
#include <string>

namespace qxmix {

/// The recorded lines of a file, one by one.
class TraceFile {
public:
    /// @param name           of the file, or "-".
    /// @param needsAnswers   whether every line has to have one.
    /// @throw InputError when it cannot be opened.
    TraceFile(const std::string& name, bool needsAnswers);

    /// The next line; none at the end. Blank lines are passed over.
    ///
    /// @throw InputError
    std::optional<RecordedLine> Next();

private:
    std::string name_;  // as it stands in errors
    bool needsAnswers_;
    std::ifstream file_;
    std::istream& lines_;
    std::uint64_t number_ = 0;
    RequestReader reader_;
};

}  // namespace qxmix
