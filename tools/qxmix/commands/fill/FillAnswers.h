#pragma once

#include "MixFill.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace qxmix {

/// What is known of all mixes.
struct FillAnswers {
    std::vector<MixFill> mixes;  ///< the best one first
    Money least;                 ///< below that no loading reaches the service, whatever the mix
    std::vector<LoadedCassette> cassettes;
    bool isComplete = true;  ///< false: Ctrl-C came before the end
};

/// Looks for the cheapest loading of each mix.
///
/// @param demands   of the runs.
/// @param order     the library and what it reads.
/// @param trace     hears the module's lines.
/// @param progress  is told of each stretch that was asked.
/// @throw WorkError when the library cannot be used.
FillAnswers Fill(const FillQuestions& questions,
                 const RunDemands& demands,
                 const OpenOrder& order,
                 const TraceSink& trace,
                 const std::function<void(const FillProgress&)>& progress);

}  // namespace qxmix
