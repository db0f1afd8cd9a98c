#include "Arithmetic.h"
#include "Searches.h"

namespace reference {
namespace {

class MaximumNotesSearch {
public:
    MaximumNotesSearch(const Question& question, Notes& notes, Journal& journal)
        : question_(question), units_(question.units), notes_(notes), journal_(journal) {}

    std::int32_t Run() {
        if (units_.size() == 1) {
            if (!PayFromOneUnit()) {
                return FailNotDispensable(journal_);
            }
        } else if (units_.size() == 2) {
            SearchTwoUnits();
        } else {
            Level(0, 0, 0);
        }
        if (!found_ && question_.partial == 1) {
            FillGreedily();
        }
        if (found_) {
            return CheckLimit(question_, notes_, journal_);
        }
        return FailNotDispensable(journal_);
    }

private:
    bool PayFromOneUnit() {
        const std::uint32_t most = MostOf(units_[0], question_.amount);
        if (units_[0].value * most != question_.amount && question_.partial != 1) {
            return false;
        }
        notes_[0] = most;
        found_ = true;
        return true;
    }

    void SearchTwoUnits() {
        std::int32_t n = Signed(MostOf(units_[0], question_.amount));
        for (; n >= 0 && !found_; --n) {
            journal_.Step();
            trial_[0] = static_cast<std::uint32_t>(n);
            const std::uint32_t paid = units_[0].value * trial_[0];
            trial_[1] = (question_.amount - paid) / units_[1].value;
            if (trial_[1] > units_[1].count) {
                return;
            }
            if (trial_[0] + trial_[1] > question_.limit ||
                paid + units_[1].value * trial_[1] != question_.amount) {
                continue;
            }
            AcceptWithinLimit();
        }
    }

    /// Runs the loop of unit i and all loops inside it, for three to five units.
    void Level(std::size_t i,  // NOLINT(misc-no-recursion) four levels at most
               std::uint32_t paidBefore,
               std::uint32_t itemsBefore) {
        const std::size_t last = units_.size() - 1;
        std::uint32_t start = MostOf(units_[i], question_.amount - paidBefore);
        if (question_.limit < start) {
            start = question_.limit;
        }
        for (std::int32_t n = Signed(start); n >= 0 && !found_; --n) {
            journal_.Step();
            trial_[i] = static_cast<std::uint32_t>(n);
            const std::uint32_t paid = paidBefore + units_[i].value * trial_[i];
            const std::uint32_t items = itemsBefore + trial_[i];
            if (i + 1 < last) {
                if (items > question_.limit && paid != question_.amount) {
                    continue;
                }
                Level(i + 1, paid, items);
            } else if (!Visit(paid, items)) {
                return;
            }
        }
    }

    /// Examines one combination; false ends the innermost loop.
    bool Visit(std::uint32_t paidByLoops, std::uint32_t itemsOfLoops) {
        const std::size_t last = units_.size() - 1;
        trial_[last] = (question_.amount - paidByLoops) / units_[last].value;
        if (trial_[last] > units_[last].count) {
            return false;
        }
        if (itemsOfLoops + trial_[last] > question_.limit ||
            paidByLoops + units_[last].value * trial_[last] != question_.amount) {
            return true;
        }
        AcceptWithinLimit();
        return true;
    }

    void AcceptWithinLimit() {
        if (CheckLimit(question_, trial_, journal_) != kPaid) {
            return;
        }
        for (std::size_t i = 0; i < units_.size(); ++i) {
            notes_[i] = trial_[i];
        }
        found_ = true;
    }

    void FillGreedily() {
        std::uint32_t paid = 0;
        for (std::size_t i = 0; i < units_.size(); ++i) {
            const std::uint32_t n = MostOf(units_[i], question_.amount - paid);
            notes_[i] = n;
            trial_[i] = n;
            paid += units_[i].value * n;
        }
        found_ = true;
    }

    const Question& question_;
    const std::vector<Unit>& units_;
    Notes& notes_;
    Journal& journal_;
    Notes trial_{};
    bool found_ = false;
};

}  // namespace

std::int32_t MaximumNotes(const Question& question, Notes& notes, Journal& journal) {
    if (question.units.empty() || question.units.size() > 5) {
        return FailUnitNumber(journal);
    }
    if (HasZeroValue(question)) {
        return FailNotDispensable(journal);
    }
    return MaximumNotesSearch(question, notes, journal).Run();
}

}  // namespace reference
