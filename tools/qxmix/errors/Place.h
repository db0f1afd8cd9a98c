#pragma once

#include "Errors.h"

#include <string>

namespace qxmix {

/// A place in an input: a file and a JSON pointer in it.
class Place {
public:
    explicit Place(std::string file, std::string pointer = "")
        : file_(std::move(file)), pointer_(std::move(pointer)) {}

    Place Below(const std::string& field) const {
        std::string escaped;
        for (const char letter : field) {
            escaped += letter == '~' ? "~0" : letter == '/' ? "~1" : std::string(1, letter);
        }
        return Place(file_, pointer_ + "/" + escaped);
    }

    Place Below(std::size_t index) const { return Below(std::to_string(index)); }

    const std::string& File() const { return file_; }

    /// @param wrong  what is wrong here and what is expected.
    FieldError Error(const std::string& wrong) const { return FieldError(file_, pointer_, wrong); }

private:
    std::string file_;
    std::string pointer_;
};

}  // namespace qxmix
