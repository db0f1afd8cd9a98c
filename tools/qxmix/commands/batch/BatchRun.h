#pragma once

#include "BatchSetting.h"
#include "workers/Desk.h"

#include <cstdint>
#include <string>

namespace qxmix {

/// What is known of a batch when it is over.
struct BatchSummary {
    std::uint64_t answeredLines = 0;
    std::uint64_t badLines = 0;
    std::string lastCode;    ///< error code written last, the lines in order; empty: none
    bool isComplete = true;  ///< false: Ctrl-C came before the end
};

/// Answers the lines of standard input on standard output, in their order, as they come. Keeps a
/// bounded number of lines at a time. After Ctrl-C it reads no more, and answers what it has read
/// as far as that does not take long.
///
/// @param jobs    workers side by side.
/// @param listen  is told how many lines are answered.
/// @throw InputError when standard input cannot be read, WorkError when the library cannot be used
///   or the answers cannot be written.
BatchSummary
RunBatch(const BatchSetting& setting, std::size_t jobs, const ProgressListener& listen);

}  // namespace qxmix
