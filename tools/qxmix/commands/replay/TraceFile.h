#pragma once

#include "RecordedLine.h"
#include "files/LinesThere.h"

#include <fstream>
#include <optional>
#include <string>
#include <vector>

namespace qxmix {

/// The recorded lines of a file, one by one.
class TraceFile {
public:
    /// @param name           of the file, or "-".
    /// @param needsAnswers   whether every line has to have one.
    /// @param deadline       for dispenser files that lines name; none: they may name none.
    /// @throw InputError when it cannot be opened.
    TraceFile(const std::string& name, bool needsAnswers, std::optional<Milliseconds> deadline);

    /// The next line; none at the end. Blank lines are passed over.
    ///
    /// @throw InputError when the file cannot be read, and where there is no line at all: nothing
    ///   would have been compared.
    std::optional<TraceLine> Next();

private:
    /// The next line, blank or not; of one that is too long the beginning, and a byte too many.
    std::optional<std::string> NextText();
    void PassOverRest();

    std::string name_;  // as it stands in errors
    bool needsAnswers_;
    std::ifstream file_;
    std::istream& lines_;
    LinesThere there_;
    std::vector<char> buffer_;  // the line being read
    std::uint64_t number_ = 0;
    bool hasLines_ = false;
    RequestReader reader_;
};

}  // namespace qxmix
