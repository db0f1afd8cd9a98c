#pragma once

#include "MapQuestions.h"
#include "MapRow.h"
#include "workers/Desk.h"

#include <cstdint>
#include <string>
#include <vector>

namespace qxmix {

/// What is known of a map: the rows of all mixes, equally long but for mixes that were given up.
struct MapAnswers {
    std::vector<MapRow> rows;       ///< one a mix, in the order of the questions
    bool isComplete = true;         ///< false: Ctrl-C came before the end
    std::string lastCode;           ///< error code written last, the amounts in order; empty: none
    std::uint64_t amountCount = 0;  ///< amounts that are done with
};

/// Asks all mixes for one amount after the other.
///
/// @param order     the library and what it reads.
/// @param trace     hears the module's lines; the amounts are asked one by one then.
/// @param progress  is told after each answer.
/// @throw WorkError when the library cannot be used.
MapAnswers AskMap(const MapQuestions& questions,
                  const OpenOrder& order,
                  const TraceSink& trace,
                  const ProgressListener& progress);

}  // namespace qxmix
