#pragma once

#include "LintCase.h"
#include "sweeps/MapAnswers.h"
#include "workers/Asker.h"

namespace qxmix {

/// What `qxmix lint` asks.
struct LintQuestions {
    MapQuestions map;          ///< the dispenser, its mixes, and all amounts as a list
    std::string registry;      ///< what the module reads, as the text of a registry file
    std::string registryFile;  ///< as named; empty: it stands in the dispenser file
    bool isRangeNamed = true;  ///< whether the file or the options name the amounts
    Milliseconds slow{20};
    std::vector<std::string> currencies;  ///< all that are asked, this one among them
};

/// The amounts in steps and those of the buttons, in order, each once.
std::vector<std::uint32_t> AmountsAndButtons(const MapQuestions& range);

/// Asks the module everything that the rules want to know.
///
/// @param order     the library and what it reads.
/// @param asker     of the same.
/// @param progress  is told after each answer to the amounts.
/// @throw WorkError when the library cannot be used.
LintCase AskLint(const LintQuestions& questions,
                 const OpenOrder& order,
                 Asker& asker,
                 const TraceSink& trace,
                 const ProgressListener& progress);

/// Asks what the rules want to know beside the answers to the amounts. Nothing is asked twice.
///
/// @param order  the library and what it reads.
/// @param asker  of the same.
/// @throw Interruption after Ctrl-C, WorkError when the library cannot be used.
void AskSecondRound(LintCase& lint, const OpenOrder& order, Asker& asker);

}  // namespace qxmix
