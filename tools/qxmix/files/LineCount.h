#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace qxmix {

/// Counts the lines of a file that is read piece by piece.
class LineCount {
public:
    void Add(const char* bytes, std::size_t size);

    /// One that nothing ends, as some editors leave the last, counts as well.
    std::uint64_t Count() const { return ended_ + (IsLastOpen() ? 1 : 0); }

    /// What has to stand before a line that is appended.
    std::string Separator() const { return IsLastOpen() ? "\n" : ""; }

private:
    bool IsLastOpen() const { return last_ != '\n'; }

    std::uint64_t ended_ = 0;
    char last_ = '\n';
};

}  // namespace qxmix
