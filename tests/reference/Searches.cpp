#include "Searches.h"

#include <algorithm>

namespace reference {

std::int32_t FailNotDispensable(Journal& journal) {
    journal.Record("971A2");
    return kNotDispensable;
}

std::int32_t FailUnitNumber(Journal& journal) {
    journal.Record("97194");
    return kTooManyUnits;
}

bool HasZeroValue(const Question& question) {
    for (const Unit& unit : question.units) {
        if (unit.value == 0) {
            return true;
        }
    }
    return false;
}

std::uint32_t FirstValue(const Question& question) {
    return question.units.empty() ? 0 : question.units[0].value;
}

std::uint32_t MostOf(const Unit& unit, std::uint32_t rest) {
    const std::uint32_t fitting = rest / unit.value;
    return fitting < unit.count ? fitting : unit.count;
}

std::int32_t
RunNamedSearch(Search search, const Question& question, Notes& notes, Journal& journal) {
    switch (search) {
    case Search::MinimumNotes:
        return MinimumNotes(question, notes, journal);
    case Search::EqualNotes:
        return EqualNotes(question, notes, journal);
    case Search::EqualEmptying:
        return EqualEmptying(question, notes, journal);
    case Search::FirstFitEmptying:
        return FirstFitEmptying(question, notes, journal);
    case Search::MaximumNotes:
        return MaximumNotes(question, notes, journal);
    }
    return kInvalidMixNumber;
}

Outcome RunSearch(Search search,  // NOLINT(readability-function-size) the parts of one question
                  const std::vector<Unit>& units,
                  std::uint32_t amount,
                  std::uint32_t partial,
                  std::uint16_t limit,
                  std::vector<std::uint32_t>& notes,
                  std::uint64_t stepBudget) {
    if (notes.size() < kMaxUnits) {
        notes.resize(kMaxUnits, 0);
    }
    Notes found{};
    std::copy_n(notes.begin(), kMaxUnits, found.begin());
    Journal journal(stepBudget);
    Outcome outcome;
    try {
        const Question question{units, amount, partial, limit};
        outcome.returned = RunNamedSearch(search, question, found, journal);
        outcome.finished = true;
    } catch (const BudgetExceeded&) {
        outcome.finished = false;
    } catch (const NeverEnds&) {
        outcome.neverEnds = true;
    }
    std::copy(found.begin(), found.end(), notes.begin());
    outcome.lastCode = journal.LastCode();
    outcome.steps = journal.Steps();
    return outcome;
}

}  // namespace reference
