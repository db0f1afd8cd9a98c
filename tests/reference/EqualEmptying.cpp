#include "Arithmetic.h"
#include "Searches.h"

namespace reference {
namespace {

enum class Pass { Exact, Fallback };

class EqualEmptyingSearch {
public:
    EqualEmptyingSearch(const Question& question, Notes& notes, Journal& journal)
        : question_(question), units_(question.units), notes_(notes), journal_(journal) {}

    std::int32_t Run() {
        if (units_.size() == 1) {
            return PayFromOneUnit();
        }
        RunPass(Pass::Exact);
        if (found_) {
            return kPaid;
        }
        if (question_.partial != 1) {
            return FailNotDispensable(journal_);
        }
        if (Signed(MostOf(units_[0], question_.amount)) < 0) {
            return FailNotDispensable(journal_);
        }
        RunPass(Pass::Fallback);
        return found_ ? kPaid : FailNotDispensable(journal_);
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
        notes_[0] = trial_[0];
        return kPaid;
    }

    void RunPass(Pass pass) {
        found_ = false;
        best_ = 0;
        Level(pass, 0, 0);
    }

    /// Runs the loop of unit j and all loops inside it; covered is what the outer ones pay.
    void Level(Pass pass,  // NOLINT(misc-no-recursion) four levels at most
               std::size_t j,
               std::uint32_t covered) {
        std::int32_t n = Signed(MostOf(units_[j], question_.amount - covered));
        while (n >= 0) {
            journal_.Step();
            trial_[j] = static_cast<std::uint32_t>(n);
            const std::uint32_t p = covered + units_[j].value * trial_[j];
            if (j + 2 == units_.size()) {
                if (!Visit(pass, p)) {
                    return;
                }
            } else {
                Level(pass, j + 1, p);
            }
            --n;
        }
    }

    /// Examines one combination; false ends the innermost loop.
    bool Visit(Pass pass, std::uint32_t p) {
        const Unit& last = units_.back();
        std::uint32_t& derived = trial_[units_.size() - 1];
        derived = (question_.amount - p) / last.value;
        if (derived > last.count) {
            return false;
        }
        const std::uint32_t total = p + last.value * derived;
        if (pass == Pass::Exact && total != question_.amount) {
            return true;
        }
        if (pass == Pass::Fallback && total >= question_.amount) {
            return true;
        }
        if (CheckLimit(question_, trial_, journal_) != kPaid) {
            return units_.size() > 2;  // on purpose: two units end the pass, more go on
        }
        const std::uint32_t score = ImbalanceScore();
        if (!found_ || best_ > score) {
            found_ = true;
            best_ = score;
            for (std::size_t i = 0; i < units_.size(); ++i) {
                notes_[i] = trial_[i];
            }
        }
        return true;
    }

    std::uint32_t ImbalanceScore() const {
        const std::size_t k = units_.size();
        if (k == 2) {
            return Absolute(units_[1].count * trial_[0] - units_[0].count * trial_[1]);
        }
        std::uint32_t score = 0;
        for (std::size_t i = 0; i < k; ++i) {
            const std::size_t j = (i + 1) % k;
            std::uint32_t term = units_[j].count * trial_[i] - trial_[j] * units_[i].count;
            for (std::size_t m = 0; m < k; ++m) {
                if (m != i && m != j) {
                    term *= units_[m].count;
                }
            }
            score += Absolute(term);
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

std::int32_t EqualEmptying(const Question& question, Notes& notes, Journal& journal) {
    if (question.units.empty() || question.units.size() > 5) {
        return FailUnitNumber(journal);
    }
    if (HasZeroValue(question)) {
        return FailNotDispensable(journal);
    }
    return EqualEmptyingSearch(question, notes, journal).Run();
}

}  // namespace reference
