#pragma once

#include "AskerPool.h"
#include "RecordedLine.h"
#include "json/Json.h"
#include "workers/Desk.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace qxmix {

/// A request that is answered in two ways.
struct ReplayDifference {
    RecordedLine line;
    Json first;   ///< fields of a result: as recorded, or by the first library
    Json second;  ///< the same fields: as answered now, or by the second library
};

/// What is known of a trace that was asked again.
struct ReplayAnswers {
    std::uint64_t requests = 0;
    std::vector<ReplayDifference> differences;
    std::vector<LineError> badLines;  ///< passed over
    bool isStopped = false;           ///< --stop: the rest of the trace was not asked
    bool isComplete = true;           ///< false: Ctrl-C came before the end
    std::uint64_t interruptedAt = 0;  ///< line
};

/// The next line; none at the end.
using TraceSource = std::function<std::optional<TraceLine>()>;

/// Hears of a bad line when it comes.
using BadLineListener = std::function<void(const LineError&)>;

/// Asks one library again and holds its answers to the recorded ones, or asks two and holds them to
/// one another.
///
/// @param libraries  one or two.
/// @param stops      whether to stop at the first difference.
/// @param listen     is told how many lines were asked.
ReplayAnswers Replay(const TraceSource& source,
                     std::vector<AskerPool>& libraries,
                     Milliseconds deadline,
                     bool stops,
                     const ProgressListener& listen,
                     const BadLineListener& listenToBad);

}  // namespace qxmix
