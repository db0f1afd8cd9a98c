#include "Arithmetic.h"
#include "Searches.h"

namespace reference {
namespace {

class MinimumNotesSearch {
public:
    MinimumNotesSearch(const Question& question, Notes& notes, Journal& journal)
        : question_(question), units_(question.units), notes_(notes), journal_(journal) {}

    std::int32_t Run() {
        if (units_.size() == 1) {
            return PayFromOneUnit();
        }
        if (Level(0, 0)) {
            TakeTrial();
            return CheckLimit(question_, notes_, journal_);
        }
        if (question_.partial == 1) {
            FillGreedily();
            TakeTrial();
            return CheckLimit(question_, notes_, journal_);
        }
        return FailNotDispensable(journal_);
    }

private:
    std::int32_t PayFromOneUnit() {
        const std::uint32_t most = MostOf(units_[0], question_.amount);
        if (units_[0].value * most == question_.amount || question_.partial == 1) {
            notes_[0] = most;
            return CheckLimit(question_, notes_, journal_);
        }
        return FailNotDispensable(journal_);
    }

    /// Tries the counts of unit k downwards; true when the trial is the solution.
    bool Level(std::size_t k,  // NOLINT(misc-no-recursion) four levels at most
               std::uint32_t used) {
        const std::size_t last = units_.size() - 1;
        std::uint32_t x = MostOf(units_[k], question_.amount - used);
        while (true) {
            journal_.Step();
            trial_.at(k) = x;
            const std::uint32_t u = used + units_[k].value * x;
            if (k + 1 < last) {
                if (Level(k + 1, u)) {
                    return true;
                }
            } else {
                const std::uint32_t y = (question_.amount - u) / units_[last].value;
                if (Signed(y) > Signed(units_[last].count)) {
                    return false;
                }
                if (u + units_[last].value * y == question_.amount) {
                    trial_[last] = y;
                    return true;
                }
            }
            if (x == 0) {
                return false;
            }
            x = x - 1;
        }
    }

    void FillGreedily() {
        std::uint32_t rest = question_.amount;
        for (std::size_t k = 0; k < units_.size(); ++k) {
            trial_[k] = MostOf(units_[k], rest);
            rest -= units_[k].value * trial_[k];
        }
    }

    void TakeTrial() {
        for (std::size_t k = 0; k < units_.size(); ++k) {
            notes_[k] = trial_[k];
        }
    }

    const Question& question_;
    const std::vector<Unit>& units_;
    Notes& notes_;
    Journal& journal_;
    Notes trial_{};
};

}  // namespace

std::int32_t MinimumNotes(const Question& question, Notes& notes, Journal& journal) {
    if (question.units.empty() || question.units.size() > 5) {
        return FailUnitNumber(journal);
    }
    if (HasZeroValue(question)) {
        return FailNotDispensable(journal);
    }
    return MinimumNotesSearch(question, notes, journal).Run();
}

}  // namespace reference
