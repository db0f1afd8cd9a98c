#pragma once

#include "LintCures.h"
#include "answers/OwnDecisions.h"
#include "mixes/MixTraits.h"
#include "sweeps/MapQuestions.h"
#include "sweeps/MapRow.h"
#include "units/Units.h"
#include "workers/WorkerMessages.h"

#include <algorithm>
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

    const MixTraits& Traits() const { return qxmix::Traits(mix); }

    std::uint16_t mix;
    Units units;             ///< as its own operations make them
    std::vector<Unit> kept;  ///< those that it draws from, in its order
    MapRow row;              ///< its answers, the amounts in order; shorter if it was given up

    // What it was asked beside that, by amount.
    std::set<std::uint32_t> paidWithoutLimit;        ///< refused, and paid with a limit of 65535
    std::map<std::uint32_t, WhyTooMuch> whyTooMuch;  ///< of the first that it took too much for
    std::set<std::size_t> shortUnits;  ///< places in units of those that gave too little
    std::map<std::uint32_t, LibraryDifference> differences;  ///< from the tool's own module

    LintCures forRefused;    ///< of what it refuses although no limit stops it
    LintCures forOverLimit;  ///< of what the limit stops
};

/// Which of all mixes pay an amount that some mix asked does not, and which take too much.
struct PayersOfAmount {
    std::set<std::uint16_t> payers;
    std::set<std::uint16_t> dangerous;
};

/// A dispenser in one currency with everything that the rules look at.
struct LintCase {
    MapQuestions questions;    ///< the dispenser, its mixes, and the amounts asked, in order
    std::string registry;      ///< what the module reads, as the text of a registry file
    std::string registryFile;  ///< as named; empty: it stands in the dispenser file
    bool isRangeNamed = true;  ///< false: the amounts are those that nobody chose
    Opening taken;             ///< what the module took from the registry
    Milliseconds slow{20};     ///< answers that take longer are slow
    std::vector<LintMix> mixes;
    std::vector<LintMix> unasked;  ///< the other mixes; their answers are those to `payers`
    std::map<std::uint32_t, PayersOfAmount> payers;  ///< by amount
    bool isComplete = true;                          ///< false: Ctrl-C came before the end
    std::string lastCode;           ///< error code written last, the amounts in order; empty: none
    std::uint64_t amountCount = 0;  ///< amounts that are done with

    std::vector<std::string> currencies;  ///< all that are asked, this one among them; or it alone

    const Dispenser& TheDispenser() const { return questions.dispenser; }

    bool IsOneOfSeveral() const { return currencies.size() > 1; }

    bool IsFirst() const {
        return !IsOneOfSeveral() || TheDispenser().currency == currencies.front();
    }

    /// Whether it is here that a cassette is told of: once, and in its own currency if that is
    /// asked.
    bool TellsOf(const Cassette& cassette) const {
        const bool isAsked =
            std::count(currencies.begin(), currencies.end(), cassette.currency) != 0;
        return !IsOneOfSeveral() ||
               (isAsked ? cassette.currency == TheDispenser().currency : IsFirst());
    }

    /// Whether a mix missed so many deadlines that the rest was not asked.
    bool IsGivenUp(const LintMix& mix) const { return mix.row.Size() < amountCount; }
};

/// A dispenser in every currency that it was asked in, in their order, one at least: after Ctrl-C
/// the last of them is not complete.
using LintCases = std::vector<LintCase>;

/// One answer of a mix, as rules look at it.
struct LintAnswer {
    std::uint32_t amount = 0;
    std::uint16_t mix = 0;
    MapCell cell;
};

/// All that is known of it.
inline Answer Unpacked(const LintCase& lint, const LintAnswer& answer) {
    return AnswerOf(lint.TheDispenser(), answer.amount, answer.mix, answer.cell);
}

/// Looks at all answers of a mix, the amounts in order.
template <typename Look>
void ForEachAnswer(const LintCase& lint, const LintMix& mix, const Look& look) {
    MapRowReader reader(mix.row);
    for (std::uint64_t place = 0; place < mix.row.Size(); ++place) {
        look(LintAnswer{lint.questions.Amount(place), mix.mix, reader.Next()});
    }
}

/// The answers of a mix for which something holds, the amounts in order.
template <typename Holds>
std::vector<LintAnswer> AnswersWhere(const LintCase& lint, const LintMix& mix, const Holds& holds) {
    std::vector<LintAnswer> answers;
    ForEachAnswer(lint, mix, [&](const LintAnswer& answer) {
        if (holds(answer)) {
            answers.push_back(answer);
        }
    });
    return answers;
}

/// The amounts of the answers for which something holds.
template <typename Holds>
std::vector<std::uint32_t>
AmountsWhere(const LintCase& lint, const LintMix& mix, const Holds& holds) {
    std::vector<std::uint32_t> amounts;
    ForEachAnswer(lint, mix, [&](const LintAnswer& answer) {
        if (holds(answer)) {
            amounts.push_back(answer.amount);
        }
    });
    return amounts;
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

/// Whether an amount does not reach the smallest note that a mix draws from.
inline bool IsBelowSmallest(const LintMix& mix, std::uint32_t amount) {
    const std::uint32_t searched = mix.units.SearchedAmount(amount);
    return !mix.kept.empty() &&
           std::all_of(mix.kept.begin(), mix.kept.end(),
                       [searched](const Unit& unit) { return searched < unit.searched; });
}

/// Whether the limit is what keeps a mix from an amount.
inline bool IsOverLimit(const LintMix& mix, const LintAnswer& answer) {
    return answer.cell.outcome == Outcome::TooManyItems ||
           mix.paidWithoutLimit.count(answer.amount) != 0;
}

/// Whether a mix refuses an amount although the limit does not keep it from it.
inline bool IsRefused(const LintMix& mix, const LintAnswer& answer) {
    return answer.cell.outcome == Outcome::NotDispensable && !IsOverLimit(mix, answer);
}

}  // namespace qxmix
