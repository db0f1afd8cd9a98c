#pragma once

#include "workers/Worker.h"

#include <cstdint>
#include <string>
#include <vector>

namespace qxmix {

/// Some lines of a batch, answered in one go.
struct LineBlock {
    std::uint64_t firstLine = 1;  ///< number of its first line
    std::string lines;            ///< each with its line end

    /// How the calculation of a line ended that took a worker down with it.
    struct Known {
        std::uint64_t line = 0;
        Ending ending;
    };
    std::vector<Known> known;

    /// Takes the first lines away, as many as are told.
    void DropFirst(std::uint64_t count);

    /// Takes this line away, and all behind it.
    void DropFrom(std::uint64_t line);

private:
    std::size_t SizeOf(std::uint64_t count) const;
};

/// The answers to a block or, in their order, to a part of it.
struct BlockAnswers {
    std::string lines;  ///< one answer for each line, each with its line end
    std::uint64_t lineCount = 0;
    std::uint64_t badLines = 0;
    std::string lastCode;  ///< error code written last; empty: none
};

// Both as bytes, on their way to a worker and back.
std::string BytesOf(const LineBlock& block);
std::string BytesOf(const BlockAnswers& answers);
LineBlock ReadLineBlock(const std::string& bytes);
BlockAnswers ReadBlockAnswers(const std::string& bytes);

}  // namespace qxmix
