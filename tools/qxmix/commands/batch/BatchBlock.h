#pragma once

#include "workers/Channel.h"
#include "workers/Worker.h"

#include <atomic>
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

    /// Takes all but the first lines away.
    void KeepFirst(std::uint64_t count);

private:
    std::size_t SizeOf(std::uint64_t count) const;
};

/// The answers to a block or, in their order, to a part of it.
struct BlockAnswers {
    bool isLast = true;  ///< false: others follow
    std::string lines;   ///< one answer for each line, each with its line end
    std::uint64_t lineCount = 0;
    std::uint64_t badLines = 0;
    std::string lastCode;  ///< error code written last; empty: none
    bool isWorn = false;   ///< the worker wants to be replaced by a new one
};

Message ToMessage(const LineBlock& block);
Message ToMessage(const BlockAnswers& answers);
LineBlock ReadLineBlock(const Message& message);
BlockAnswers ReadBlockAnswers(const Message& message);

/// What a worker tells about the calculation that it is at, in memory that it shares with the tool.
struct BatchMark {
    std::atomic<std::uint64_t> line{0};         ///< 0: it is at none
    std::atomic<std::int64_t> workedBefore{0};  ///< its processor time then, in nanoseconds
};

}  // namespace qxmix
