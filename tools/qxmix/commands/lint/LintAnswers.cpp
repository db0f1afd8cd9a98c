#include "LintAnswers.h"

#include "CashUnitCodes.h"
#include "LintReport.h"
#include "options/MixList.h"
#include "requests/Request.h"
#include "units/SearchedItems.h"

#include <algorithm>

namespace qxmix {

namespace {

constexpr Milliseconds kDeadline{100};
constexpr std::uint16_t kNoLimit = UINT16_MAX;
constexpr std::uint16_t kMaximumNotes = 10;

/// Asks more about what the mixes answered to the amounts.
class SecondRound {
public:
    SecondRound(LintCase& lint, const OpenOrder& order, Asker& asker)
        : lint_(lint), order_(order), asker_(asker) {}

    void Ask(LintMix& mix) {
        const std::vector<std::uint32_t> refused =
            AmountsWith(mix, [](Outcome outcome) { return outcome == Outcome::NotDispensable; });
        MapQuestions unlimited = Listed(refused);
        unlimited.dispenser.maxDispenseItems = kNoLimit;
        unlimited.mixes = {mix.mix};
        mix.paidWithoutLimit = PaidOf(unlimited);
        if (CanStopAtLimit(mix)) {
            MapQuestions others = Listed(refused);
            others.mixes = AllMixes();
            others.mixes.erase(std::find(others.mixes.begin(), others.mixes.end(), mix.mix));
            mix.paidByAnother = PaidOf(others);
        }
        AskWhyTooMuch(mix);
        AskShortUnits(mix);
    }

private:
    template <typename Matches>
    std::vector<std::uint32_t> AmountsWith(const LintMix& mix, const Matches& matches) const {
        std::vector<std::uint32_t> amounts;
        for (const LintAnswer& answer : AnswersWhere(lint_, mix, [&matches](const LintAnswer& one) {
                 return matches(one.cell.outcome);
             })) {
            amounts.push_back(answer.amount);
        }
        return amounts;
    }

    MapQuestions Listed(const std::vector<std::uint32_t>& amounts) const {
        MapQuestions questions = lint_.questions;
        questions.listed = amounts;
        return questions;
    }

    /// The amounts of a list that any of the mixes pays.
    std::set<std::uint32_t> PaidOf(const MapQuestions& questions) const {
        std::set<std::uint32_t> paid;
        if (questions.listed.empty()) {
            return paid;
        }
        const MapAnswers answers = AskMap(questions, order_, nullptr, [](const WorkProgress&) {});
        for (const MapRow& row : answers.rows) {
            MapRowReader reader(row);
            for (std::uint64_t place = 0; place < row.Size(); ++place) {
                if (reader.Next().outcome == Outcome::Paid) {
                    paid.insert(questions.Amount(place));
                }
            }
        }
        if (!answers.isComplete) {
            throw Interruption();
        }
        return paid;
    }

    /// Mixes that end their search at the first combination over the limit: with two units alone,
    /// one of notes and one of coins, which are held to the limit apart.
    static bool CanStopAtLimit(const LintMix& mix) {
        const bool isOne = mix.mix == 2 || mix.mix == 3 || mix.mix == 7 || mix.mix == 8;
        return isOne && mix.kept.size() == 2 &&
               Contains(kCoinTypes, mix.kept[0].type) != Contains(kCoinTypes, mix.kept[1].type);
    }

    /// Why a mix took too much. Mix 10 takes any combination that the limit allows, so it tells
    /// whether there is one of the same units.
    void AskWhyTooMuch(LintMix& mix) {
        const std::vector<std::uint32_t> amounts = AmountsWith(mix, [](Outcome outcome) {
            return outcome == Outcome::Overpaid || outcome == Outcome::Overdrawn;
        });
        for (std::size_t index = 0; index < std::min(amounts.size(), kListedAmounts); ++index) {
            const std::uint16_t limit = lint_.TheDispenser().maxDispenseItems;
            const std::uint32_t amount = mix.units.SearchedAmount(amounts[index]);
            mix.whyTooMuch[amounts[index]] = CanBePaid(mix, amount, limit) ? WhyTooMuch::SearchOrder
                                             : CanBePaid(mix, amount, kNoLimit)
                                                 ? WhyTooMuch::Limit
                                                 : WhyTooMuch::NoCombination;
        }
    }

    bool CanBePaid(const LintMix& mix, std::uint32_t amount, std::uint16_t limit) {
        MixRequest request = mix.units.OneCassettePerUnit();
        std::size_t slot = 0;
        for (const Unit& unit : mix.units.All()) {
            if (!unit.dropped) {
                request.aPhysicalCUs[slot++].ulValues = unit.searched;
            }
        }
        request.usMixNumber = kMaximumNotes;
        request.usMaxDispenseItems = limit;
        request.bAllowPartial = 0;
        request.sExponent = 0;
        request.ulAmount = amount;
        const Reply reply = asker_.Ask(request, kDeadline, Asker::Tracing::Silent);
        return reply.ending.kind == Ending::Kind::Answered && reply.calculation.returned == 0 &&
               reply.calculation.request.ulRemainder == 0U;
    }

    /// Which units gave less than the search took of them.
    void AskShortUnits(LintMix& mix) {
        const auto answers = AnswersWhere(lint_, mix, [](const LintAnswer& answer) {
            return answer.cell.outcome == Outcome::NothingPaid ||
                   answer.cell.outcome == Outcome::PaidInPart;
        });
        for (std::size_t index = 0; index < std::min(answers.size(), kListedAmounts); ++index) {
            const LintAnswer& answer = answers[index];
            const std::vector<std::uint32_t> searched =
                SearchedItems(mix.units, answer.amount, asker_);
            const std::vector<std::uint32_t> given = GivenItems(
                mix.units, Judge(lint_.TheDispenser(), answer.amount, ReplyOf(answer.cell)));
            for (std::size_t place = 0; place < mix.units.All().size(); ++place) {
                const Unit& unit = mix.units.All()[place];
                if (!searched.empty() && !unit.dropped &&
                    searched[unit.order] > given[unit.order]) {
                    mix.shortUnits.insert(place);
                }
            }
        }
    }

    LintCase& lint_;
    const OpenOrder& order_;
    Asker& asker_;
};

}  // namespace

std::vector<std::uint32_t> AmountsAndButtons(const MapQuestions& range) {
    std::set<std::uint32_t> amounts(range.dispenser.amounts.buttons.begin(),
                                    range.dispenser.amounts.buttons.end());
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
    lint.taken = asker.Open();
    lint.slow = questions.slow;
    const MapAnswers answers = AskMap(questions.map, order, trace, progress);
    lint.isComplete = answers.isComplete;
    lint.lastCode = answers.lastCode;
    for (std::size_t row = 0; row < questions.map.mixes.size(); ++row) {
        const std::uint16_t mix = questions.map.mixes[row];
        const MixRequest request = BuildRequest(questions.map.dispenser, 0, mix);
        lint.mixes.emplace_back(mix, Units(request, lint.taken.minimum));
        lint.mixes.back().row = answers.rows[row];
    }
    try {
        SecondRound round(lint, order, asker);
        for (LintMix& mix : lint.mixes) {
            if (lint.isComplete) {
                round.Ask(mix);
            }
        }
    } catch (const Interruption&) {
        lint.isComplete = false;
    }
    return lint;
}

}  // namespace qxmix
