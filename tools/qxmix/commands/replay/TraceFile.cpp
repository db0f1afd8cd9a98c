#include "TraceFile.h"

#include "errors/Errors.h"

#include <cerrno>
#include <cstring>
#include <iostream>

namespace qxmix {

TraceFile::TraceFile(const std::string& name, bool needsAnswers)
    : name_(name == "-" ? "standard input" : name), needsAnswers_(needsAnswers),
      lines_(name == "-" ? std::cin : file_), reader_(AskOptions{}) {
    if (name != "-") {
        errno = 0;
        file_.open(name, std::ios::binary);
        // A folder can be opened, but not read.
        if (!file_ || (file_.peek() == std::char_traits<char>::eof() && errno != 0)) {
            throw InputError(name + ": cannot be opened: " + std::strerror(errno));
        }
        file_.clear();
    }
}

std::optional<RecordedLine> TraceFile::Next() {
    std::string text;
    while (std::getline(lines_, text)) {
        ++number_;
        if (text.find_first_not_of(" \t\r") == std::string::npos) {
            continue;
        }
        RecordedLine line = ReadRecordedLine(text, name_, number_, reader_);
        if (needsAnswers_ && line.answer.is_null()) {
            throw InputError(name_ + ":" + std::to_string(number_) +
                             ": /answer: missing; expected what was answered, or two libraries");
        }
        return line;
    }
    return std::nullopt;
}

}  // namespace qxmix
