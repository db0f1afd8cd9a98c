#include "LintAnswers.h"
#include "LintReport.h"
#include "errors/Errors.h"
#include "requests/Request.h"
#include "sweeps/MapAnswers.h"
#include "units/SearchedItems.h"

#include <algorithm>

namespace qxmix {

namespace {

constexpr std::uint64_t kMissesToGiveUp = 3;
constexpr std::uint16_t kMaximumNotes = 10;

/// Asks more about what the mixes answered to the amounts.
class SecondRound {
public:
    SecondRound(LintCase& lint, const OpenOrder& order, Asker& asker)
        : lint_(lint), order_(order), asker_(asker) {}

    void Ask() {
        for (LintMix& mix : lint_.mixes) {
            AskWithoutLimit(mix);
            AskWhyTooMuch(mix);
            AskShortUnits(mix);
        }
        FindPayers();
        CureFinder finder(lint_, asker_);
        for (LintMix& mix : lint_.mixes) {
            FindCures(mix, finder);
        }
    }

private:
    using Sink = std::function<void(std::uint16_t mix, std::uint32_t amount, const MapCell& cell)>;

    /// Asks amounts of some mixes; one that keeps missing its deadline is given up soon.
    MapAnswers AskAmounts(MapQuestions questions, const Sink& sink) const {
        MapAnswers answers;
        if (questions.listed.empty() || questions.mixes.empty()) {
            return answers;
        }
        questions.mostMisses = kMissesToGiveUp;
        answers = AskMap(questions, order_, nullptr, [](const WorkProgress&) {});
        for (std::size_t row = 0; row < answers.rows.size(); ++row) {
            MapRowReader reader(answers.rows[row]);
            for (std::uint64_t place = 0; place < answers.rows[row].Size(); ++place) {
                sink(questions.mixes[row], questions.Amount(place), reader.Next());
            }
        }
        if (!answers.isComplete) {
            throw Interruption();
        }
        return answers;
    }

    void AskWithoutLimit(LintMix& mix) {
        MapQuestions unlimited = lint_.questions;
        unlimited.dispenser.maxDispenseItems = kNoLimit;
        unlimited.mixes = {mix.mix};
        unlimited.listed = AmountsWhere(lint_, mix, [](const LintAnswer& answer) {
            return answer.cell.outcome == Outcome::NotDispensable;
        });
        AskAmounts(unlimited, [&mix](std::uint16_t, std::uint32_t amount, const MapCell& cell) {
            if (cell.outcome == Outcome::Paid) {
                mix.paidWithoutLimit.insert(amount);
            }
        });
    }

    /// Which mixes pay what some mix asked does not: those that were asked have answered already.
    void FindPayers() {
        const auto note = [this](std::uint16_t mix, std::uint32_t amount, const MapCell& cell) {
            const auto known = lint_.payers.find(amount);
            if (known == lint_.payers.end()) {
                return;
            }
            if (cell.outcome == Outcome::Paid) {
                known->second.payers.insert(mix);
            } else if (!cell.IsAnswered() || RowOf(cell.outcome).exitStatus == ExitStatus::Danger) {
                known->second.dangerous.insert(mix);
            }
        };
        MapQuestions others = lint_.questions;
        others.listed = AmountsThatNeedAnother();
        for (const std::uint32_t amount : others.listed) {
            lint_.payers[amount];
        }
        for (const LintMix& mix : lint_.mixes) {
            ForEachAnswer(lint_, mix, [&](const LintAnswer& answer) {
                note(mix.mix, answer.amount, answer.cell);
            });
        }
        others.mixes.clear();
        for (const LintMix& mix : lint_.unasked) {
            others.mixes.push_back(mix.mix);
        }
        const MapAnswers answers = AskAmounts(others, note);
        for (std::size_t row = 0; row < answers.rows.size(); ++row) {
            lint_.unasked[row].row = answers.rows[row];
        }
    }

    /// Amounts for which a rule may advise another mix, in order, each once.
    std::vector<std::uint32_t> AmountsThatNeedAnother() const {
        const std::vector<std::uint32_t>& buttons = lint_.TheDispenser().AmountsTold().buttons;
        std::set<std::uint32_t> amounts;
        for (const LintMix& mix : lint_.mixes) {
            ForEachAnswer(lint_, mix, [&](const LintAnswer& answer) {
                const Outcome outcome = answer.cell.outcome;
                const bool isRefused =
                    outcome == Outcome::NotDispensable || outcome == Outcome::TooManyItems;
                const bool isTooMuch =
                    outcome == Outcome::Overpaid || outcome == Outcome::Overdrawn;
                const bool isDeadButton =
                    outcome != Outcome::Paid &&
                    std::count(buttons.begin(), buttons.end(), answer.amount) != 0;
                if (isRefused || isTooMuch || isDeadButton) {
                    amounts.insert(answer.amount);
                }
            });
        }
        return {amounts.begin(), amounts.end()};
    }

    void FindCures(LintMix& mix, CureFinder& finder) {
        const auto refused = AmountsWhere(
            lint_, mix, [&mix](const LintAnswer& answer) { return IsRefused(mix, answer); });
        if (!refused.empty()) {
            mix.forRefused = finder.Find(mix, refused);
        }
        const auto overLimit = AmountsWhere(
            lint_, mix, [&mix](const LintAnswer& answer) { return IsOverLimit(mix, answer); });
        if (!overLimit.empty()) {
            mix.forOverLimit = finder.Find(mix, overLimit);
            mix.forOverLimit.limit = finder.FindLimit(mix, overLimit);
        }
    }

    /// Why a mix took too much. Mix 10 takes any combination that the limit allows, so it tells
    /// whether there is one of the same units.
    void AskWhyTooMuch(LintMix& mix) {
        const std::vector<std::uint32_t> amounts =
            AmountsWhere(lint_, mix, [](const LintAnswer& answer) {
                return answer.cell.outcome == Outcome::Overpaid ||
                       answer.cell.outcome == Outcome::Overdrawn;
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
        const Reply reply = asker_.Ask(request, kSideDeadline, Asker::Tracing::Silent);
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
            const std::vector<std::uint32_t> given = GivenItems(mix.units, Unpacked(lint_, answer));
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

void AskSecondRound(LintCase& lint, const OpenOrder& order, Asker& asker) {
    SecondRound(lint, order, asker).Ask();
}

}  // namespace qxmix
