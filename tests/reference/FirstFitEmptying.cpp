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
    static constexpr std::uint64_t kTurns = std::uint64_t{1} << 32U;  ///< until a count is back

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
    /// Only the innermost loop can end without an accepted combination. A loop whose count is back
    /// where it began has nothing new to come.
    bool Level(std::size_t j, std::uint32_t before) {  // NOLINT(misc-no-recursion) four at most
        const std::size_t last = units_.size() - 1;
        std::uint32_t n = MostOf(units_[j], question_.amount - before);
        for (std::uint64_t turn = 0; turn < kTurns;) {
            journal_.Step();
            trial_.at(j) = n;
            const std::uint32_t p = before + units_[j].value * n;
            std::uint64_t turns = 1;
            if (j + 1 < last) {
                if (Level(j + 1, p)) {
                    return true;
                }
                turns = j + 2 == last ? TurnsToNextBegun(question_.amount - p, units_[j].value) : 1;
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
            n = n - static_cast<std::uint32_t>(turns);
            turn += turns;
        }
        throw NeverEnds{};
    }

    /// Of the loop around the innermost one: turns from one that leaves `rest` to the last two
    /// units up to the next whose innermost loop gets as far as its first combination. It does not
    /// where the last unit is short although the other one gives all it has.
    std::uint64_t TurnsToNextBegun(std::uint32_t rest, std::uint32_t value) {
        const Unit& inner = units_[units_.size() - 2];
        const Unit& last = units_[units_.size() - 1];
        const std::uint64_t shortFrom = std::uint64_t{inner.value} * inner.count +
                                        std::uint64_t{last.value} * (std::uint64_t{last.count} + 1);
        std::uint64_t turns = 1;
        std::uint64_t left = (std::uint64_t{rest} + value) % kTurns;
        while (left >= shortFrom && turns < kTurns) {
            journal_.Step();
            const std::uint64_t toWrap = (kTurns - left + value - 1) / value;
            turns += toWrap;
            left = (left + toWrap * value) % kTurns;
        }
        return turns;
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
