#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "BatchBlock.h"
#include "files/LinesThere.h"

namespace qxmix {

/// Cuts a stream of bytes into blocks of whole lines. Of a line that is longer than kLongestLine so
/// much is kept, and a byte more.
class LineCutter {
public:
    /// @param mostLines  of a block.
    /// @param there      lines of the stream; what comes behind them is passed over.
    explicit LineCutter(std::size_t mostLines, LinesThere there = {})
        : mostLines_(mostLines), there_(there) {}

    void Add(const char* bytes, std::size_t size);

    /// Whether all lines are there; a stream that has no known end tells by ending.
    bool IsOver() const { return begun_.empty() && !there_.HasNext(); }

    /// What stands behind the last line end is a line, too.
    void End();

    /// The next block of those lines that are whole, if there are any.
    std::optional<LineBlock> Next();

private:
    std::size_t mostLines_;
    LinesThere there_;       // lines that are not begun yet
    std::string whole_;      // lines that are whole
    std::size_t taken_ = 0;  // bytes of them that are in blocks already
    std::string begun_;      // the line that is not whole yet
    std::uint64_t nextLine_ = 1;
};

}  // namespace qxmix
