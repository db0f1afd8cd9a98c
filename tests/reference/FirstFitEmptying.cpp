#include "Searches.h"

namespace reference {
namespace {

class FirstFitSearch {
public:
    FirstFitSearch(const Question& question, Notes& notes, Journal& journal)
        : question_(question), units_(question.units), notes_(notes), journal_(journal) {}

    std::int32_t Run() {
        if (units_.size() == 1) {
            return PayFromOneUnit();
        }
        if (Level(0, 0)) {
            TakeTrial();
            return kPaid;
        }
        if (units_.size() == 2 && question_.partial == 1) {
            return FallBackWithTwoUnits();
        }
        return FailNotDispensable(journal_);
    }

private:
    std::int32_t PayFromOneUnit() {
        trial_[0] = MostOf(units_[0], question_.amount);
        if (units_[0].value * trial_[0] != question_.amount && question_.partial != 1) {
            return FailNotDispensable(journal_);
        }
        if (CheckLimit(question_, trial_, journal_) != kPaid) {
            return FailNotDispensable(journal_);
        }
        TakeTrial();
        return kPaid;
    }

    /// Runs the loop of unit j and all loops inside it; true when the trial was accepted.
    ///
    /// On purpose no count is tested against 0: after 0 comes 4294967295, and the search goes on.
    /// Only the innermost loop can end without an accepted combination.
    bool Level(std::size_t j, std::uint32_t before) {  // NOLINT(misc-no-recursion) four at most
        const std::size_t last = units_.size() - 1;
        std::uint32_t n = MostOf(units_[j], question_.amount - before);
        while (true) {
            journal_.Step();
            trial_.at(j) = n;
            const std::uint32_t p = before + units_[j].value * n;
            if (j + 1 < last) {
                if (Level(j + 1, p)) {
                    return true;
                }
            } else {
                trial_[last] = (question_.amount - p) / units_[last].value;
                if (trial_[last] > units_[last].count) {
                    return false;
                }
                if (p + units_[last].value * trial_[last] == question_.amount &&
                    CheckLimit(question_, trial_, journal_) == kPaid) {
                    return true;
                }
            }
            n = n - 1;
        }
    }

    std::int32_t FallBackWithTwoUnits() {
        std::uint32_t n = MostOf(units_[0], question_.amount);
        while (true) {
            journal_.Step();
            trial_[0] = n;
            const std::uint32_t p = units_[0].value * n;
            trial_[1] = (question_.amount - p) / units_[1].value;
            if (trial_[1] > units_[1].count) {
                return FailNotDispensable(journal_);
            }
            if (p + units_[1].value * trial_[1] < question_.amount &&
                CheckLimit(question_, trial_, journal_) == kPaid) {
                TakeTrial();
                return kPaid;
            }
            n = n - 1;
        }
    }

    void TakeTrial() {
        for (std::size_t i = 0; i < units_.size(); ++i) {
            notes_[i] = trial_[i];
        }
    }

    const Question& question_;
    const std::vector<Unit>& units_;
    Notes& notes_;
    Journal& journal_;
    Notes trial_{};
};

}  // namespace

std::int32_t FirstFitEmptying(const Question& question, Notes& notes, Journal& journal) {
    if (FirstValue(question) == 0) {
        return kNotDispensable;  // nothing recorded
    }
    if (question.units.size() > 5) {
        return FailUnitNumber(journal);
    }
    if (HasZeroValue(question)) {
        return FailNotDispensable(journal);
    }
    return FirstFitSearch(question, notes, journal).Run();
}

}  // namespace reference
