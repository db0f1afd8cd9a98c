#pragma once

#include "commands/map/MapQuestions.h"
#include "commands/map/MapRow.h"
#include "units/Units.h"
#include "workers/WorkerMessages.h"

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace qxmix {

/// Why a mix took too much although it could have known better.
enum class WhyTooMuch {
    NoCombination,  ///< no combination of notes makes the amount
    Limit,          ///< every combination is over the limit
    SearchOrder,    ///< it could be paid: the search came upon something else first
};

/// What one mix of a dispenser answered.
struct LintMix {
    LintMix(std::uint16_t number, Units built)
        : mix(number), units(std::move(built)), kept(units.Kept()) {}

    std::uint16_t mix;
    Units units;             ///< as its own operations make them
    std::vector<Unit> kept;  ///< those that it draws from, in its order
    MapRow row;              ///< its answers, the amounts in order

    // What it was asked beside that, by amount.
    std::set<std::uint32_t> paidWithoutLimit;        ///< refused, and paid with a limit of 65535
    std::set<std::uint32_t> paidByAnother;           ///< refused, and paid by another mix
    std::map<std::uint32_t, WhyTooMuch> whyTooMuch;  ///< of the first that it took too much for
    std::set<std::size_t> shortUnits;  ///< places in units of those that gave too little
};

/// A dispenser with everything that the rules look at.
struct LintCase {
    MapQuestions questions;    ///< the dispenser, its mixes, and the amounts asked, in order
    std::string registry;      ///< what the module reads, as the text of a registry file
    std::string registryFile;  ///< its name; empty: it stands in the dispenser file
    Opening taken;             ///< what the module took from it
    Milliseconds slow{20};     ///< answers that take longer are slow
    std::vector<LintMix> mixes;
    bool isComplete = true;  ///< false: Ctrl-C came before the end
    std::string lastCode;    ///< error code written last, the amounts in order; empty: none

    const Dispenser& TheDispenser() const { return questions.dispenser; }

    /// Amounts that all mixes have answered.
    std::uint64_t AmountCount() const { return mixes.front().row.Size(); }
};

/// One answer of a mix, as rules look at it.
struct LintAnswer {
    std::uint32_t amount = 0;
    MapCell cell;
};

/// The answers of a mix for which something holds, the amounts in order.
template <typename Holds>
std::vector<LintAnswer> AnswersWhere(const LintCase& lint, const LintMix& mix, const Holds& holds) {
    std::vector<LintAnswer> answers;
    MapRowReader reader(mix.row);
    for (std::uint64_t place = 0; place < mix.row.Size(); ++place) {
        const LintAnswer answer{lint.questions.Amount(place), reader.Next()};
        if (holds(answer)) {
            answers.push_back(answer);
        }
    }
    return answers;
}

/// The mixes for which something holds.
template <typename Holds>
std::vector<std::uint16_t> MixesWhere(const LintCase& lint, const Holds& holds) {
    std::vector<std::uint16_t> mixes;
    for (const LintMix& mix : lint.mixes) {
        if (holds(mix)) {
            mixes.push_back(mix.mix);
        }
    }
    return mixes;
}

}  // namespace qxmix
