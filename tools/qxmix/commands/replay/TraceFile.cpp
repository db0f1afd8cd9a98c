#include "TraceFile.h"

#include "errors/Errors.h"
#include "errors/Place.h"
#include "files/InputFile.h"

#include <cerrno>
#include <cstring>
#include <iostream>

namespace qxmix {

TraceFile::TraceFile(const std::string& name,
                     bool needsAnswers,
                     std::optional<Milliseconds> deadline)
    : name_(name == "-" ? "standard input" : name), needsAnswers_(needsAnswers),
      lines_(name == "-" ? std::cin : file_), there_(LinesThere::In(name)),
      buffer_(kLongestLine + 2), reader_(AskOptions{}, deadline) {
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

std::optional<TraceLine> TraceFile::Next() {
    while (const std::optional<std::string> text = NextText()) {
        if (text->size() > kLongestLine) {
            hasLines_ = true;
            return LineError(number_, {},
                             Place(name_ + ":" + std::to_string(number_))
                                 .Error("more than " + std::to_string(kLongestLine) +
                                        " bytes; expected a shorter line"));
        }
        if (text->find_first_not_of(" \t\r") != std::string::npos) {
            hasLines_ = true;
            return ReadTraceLine(*text, name_, number_, needsAnswers_, reader_);
        }
    }
    if (!hasLines_) {
        throw InputError(name_ + ": no requests; expected a recorded one a line");
    }
    return std::nullopt;
}

std::optional<std::string> TraceFile::NextText() {
    if (!there_.HasNext()) {
        return std::nullopt;
    }
    lines_.getline(buffer_.data(), static_cast<std::streamsize>(buffer_.size()));
    const auto size = static_cast<std::size_t>(lines_.gcount());
    there_.Pass(size);
    if (lines_.bad()) {
        throw InputError(name_ + ": cannot be read: " + std::strerror(errno));
    }
    ++number_;
    if (lines_.fail() && size > 0) {
        PassOverRest();
        return std::string(buffer_.data(), size);
    }
    if (lines_.fail()) {
        return std::nullopt;
    }
    // What ended the line was counted, too, but not the end of the file.
    return std::string(buffer_.data(), lines_.eof() ? size : size - 1);
}

/// A device may go on for ever without a line end.
void TraceFile::PassOverRest() {
    lines_.clear();
    lines_.ignore(static_cast<std::streamsize>(kLargestInput), '\n');
    const auto size = static_cast<std::size_t>(lines_.gcount());
    there_.Pass(size);
    if (size == kLargestInput) {
        throw InputError(name_ + ":" + std::to_string(number_) + ": more than " +
                         std::to_string(kLargestInput) + " bytes; expected a line end");
    }
}

}  // namespace qxmix
