#include "LintAnswers.h"

#include "errors/Errors.h"
#include "mixes/MixTraits.h"
#include "options/MixList.h"
#include "requests/Request.h"
#include "sweeps/MapDifferences.h"
#include "workers/AdaptiveDeadline.h"

#include <algorithm>

namespace qxmix {

namespace {

/// All mixes, without answers.
void AddMixes(LintCase& lint) {
    for (const std::uint16_t mix : AllMixes()) {
        const auto& asked = lint.questions.mixes;
        const MixRequest request = BuildRequest(lint.TheDispenser(), 0, mix);
        const bool isAsked = std::count(asked.begin(), asked.end(), mix) != 0;
        (isAsked ? lint.mixes : lint.unasked).emplace_back(mix, Units(request, lint.taken.minimum));
    }
}

/// Notes where another library than the tool's own behaves otherwise.
void CompareWithOwnModule(LintCase& lint, const OpenOrder& order) {
    OwnDecisions decisions(order.library, lint.taken.minimum);
    for (LintMix& mix : lint.mixes) {
        FindDifferences(lint.questions, mix.mix, mix.row, decisions,
                        [&mix](std::uint32_t amount, LibraryDifference difference) {
                            mix.differences[amount] = difference;
                        });
    }
}

}  // namespace

std::vector<std::uint32_t> AmountsAndButtons(const MapQuestions& range) {
    const std::vector<std::uint32_t>& buttons = range.dispenser.AmountsTold().buttons;
    std::set<std::uint32_t> amounts(buttons.begin(), buttons.end());
    for (std::uint64_t index = 0; index < range.AmountCount(); ++index) {
        amounts.insert(range.Amount(index));
    }
    return {amounts.begin(), amounts.end()};
}

LintCase AskLint(const LintQuestions& questions,
                 const OpenOrder& order,
                 Asker& asker,
                 const TraceSink& trace,
                 const ProgressListener& progress) {
    LintCase lint;
    lint.questions = questions.map;
    lint.registry = questions.registry;
    lint.registryFile = questions.registryFile;
    lint.isRangeNamed = questions.isRangeNamed;
    lint.currencies = questions.currencies;
    lint.taken = asker.Open();
    lint.slow = questions.slow;
    AddMixes(lint);
    lint.questions.mostMisses = kMissesToGiveUp;
    const MapAnswers answers = AskMap(lint.questions, order, trace, progress);
    lint.isComplete = answers.isComplete;
    lint.lastCode = answers.lastCode;
    lint.amountCount = answers.amountCount;
    for (std::size_t row = 0; row < lint.mixes.size(); ++row) {
        lint.mixes[row].row = answers.rows[row];
    }
    try {
        if (lint.isComplete) {
            CompareWithOwnModule(lint, order);
            AskSecondRound(lint, order, asker);
        }
    } catch (const Interruption&) {
        lint.isComplete = false;
    }
    return lint;
}

}  // namespace qxmix
