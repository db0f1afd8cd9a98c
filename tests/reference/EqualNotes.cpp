#include "Arithmetic.h"
#include "Searches.h"

namespace reference {
namespace {

enum class Phase { Exact, Partial };

class EqualNotesSearch {
public:
    EqualNotesSearch(const Question& question, Notes& notes, Journal& journal)
        : question_(question), units_(question.units), notes_(notes), journal_(journal) {}

    std::int32_t Run() {
        if (units_.size() == 1) {
            return PayFromOneUnit();
        }
        Level(Phase::Exact, 0, 0);
        if (found_) {
            return kPaid;
        }
        if (question_.partial != 1 || Signed(MostOf(units_[0], question_.amount)) < 0) {
            return FailNotDispensable(journal_);
        }
        Level(Phase::Partial, 0, 0);
        return found_ ? kPaid : FailNotDispensable(journal_);
    }

private:
    std::int32_t PayFromOneUnit() {
        trial_[0] = MostOf(units_[0], question_.amount);
        if (units_[0].value * trial_[0] == question_.amount || question_.partial == 1) {
            if (CheckLimit(question_, trial_, journal_) == kPaid) {
                notes_[0] = trial_[0];
                return kPaid;
            }
        }
        return FailNotDispensable(journal_);
    }

    /// Runs the loop of unit i and all loops inside it.
    void Level(Phase phase,  // NOLINT(misc-no-recursion) four levels at most
               std::size_t i,
               std::uint32_t before) {
        const std::size_t last = units_.size() - 1;
        std::int32_t n = Signed(MostOf(units_[i], question_.amount - before));
        for (; n >= 0; --n) {
            journal_.Step();
            trial_[i] = static_cast<std::uint32_t>(n);
            const std::uint32_t paid = before + units_[i].value * trial_[i];
            if (i + 1 < last) {
                Level(phase, i + 1, paid);
            } else if (!Visit(phase, paid)) {
                return;
            }
        }
    }

    /// Examines one combination; false ends the innermost loop.
    bool Visit(Phase phase, std::uint32_t paidByLoops) {
        const std::size_t last = units_.size() - 1;
        trial_[last] = (question_.amount - paidByLoops) / units_[last].value;
        if (trial_[last] > units_[last].count) {
            return false;
        }
        const std::uint32_t total = paidByLoops + units_[last].value * trial_[last];
        const bool candidate =
            phase == Phase::Exact ? total == question_.amount : total < question_.amount;
        if (!candidate) {
            return true;
        }
        if (CheckLimit(question_, trial_, journal_) != kPaid) {
            // On purpose: with two units a refusal ends the phase, with more it skips.
            return units_.size() != 2;
        }
        KeepIfBetter();
        return true;
    }

    void KeepIfBetter() {
        const std::uint32_t score = Unevenness();
        if (found_ && score >= best_) {
            return;
        }
        found_ = true;
        best_ = score;
        for (std::size_t i = 0; i < units_.size(); ++i) {
            notes_[i] = trial_[i];
        }
    }

    std::uint32_t Unevenness() const {
        const std::uint32_t k = static_cast<std::uint32_t>(units_.size());
        std::uint32_t sum = 0;
        for (std::size_t i = 0; i < units_.size(); ++i) {
            sum += trial_[i];
        }
        std::uint32_t score = 0;
        for (std::size_t i = 0; i < units_.size(); ++i) {
            const std::uint32_t deviation = k * trial_[i] - sum;
            score += deviation * deviation;
        }
        return score;
    }

    const Question& question_;
    const std::vector<Unit>& units_;
    Notes& notes_;
    Journal& journal_;
    Notes trial_{};
    bool found_ = false;
    std::uint32_t best_ = 0;
};

}  // namespace

std::int32_t EqualNotes(const Question& question, Notes& notes, Journal& journal) {
    if (FirstValue(question) == 0) {
        return kNotDispensable;  // nothing recorded
    }
    if (question.units.size() > 5) {
        return FailUnitNumber(journal);
    }
    if (HasZeroValue(question)) {
        return FailNotDispensable(journal);
    }
    return EqualNotesSearch(question, notes, journal).Run();
}

}  // namespace reference
