#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "Journal.h"
#include "Reference.h"

namespace reference {

using Notes = std::array<std::uint32_t, kMaxUnits>;

constexpr std::int32_t kPaid = 0;
constexpr std::int32_t kInvalidMixNumber = -304;
constexpr std::int32_t kNotDispensable = -306;
constexpr std::int32_t kTooManyItems = -307;
constexpr std::int32_t kTooManyUnits = -315;

/// What a search is asked.
struct Question {
    std::vector<Unit> units;
    std::uint32_t amount = 0;
    std::uint32_t partial = 0;
    std::uint16_t limit = 0;
};

/// Holds notes to the limit, bank notes and coins apart; a total equal to the limit passes.
/// Returns kPaid, or kTooManyItems after recording "971A3" (notes) or "971A4" (coins).
std::int32_t CheckLimit(const Question& question, const Notes& notes, Journal& journal);

/// The five searches. Each fills notes for its units and returns kPaid, or records a code and
/// returns a failure.
std::int32_t MinimumNotes(const Question& question, Notes& notes, Journal& journal);
std::int32_t EqualNotes(const Question& question, Notes& notes, Journal& journal);
std::int32_t EqualEmptying(const Question& question, Notes& notes, Journal& journal);
std::int32_t FirstFitEmptying(const Question& question, Notes& notes, Journal& journal);
std::int32_t MaximumNotes(const Question& question, Notes& notes, Journal& journal);

/// Search by name.
std::int32_t
RunNamedSearch(Search search, const Question& question, Notes& notes, Journal& journal);

/// Records "971A2" and returns kNotDispensable.
std::int32_t FailNotDispensable(Journal& journal);

/// Records "97194" and returns kTooManyUnits.
std::int32_t FailUnitNumber(Journal& journal);

/// Whether a unit of value 0 is among the units, by which no search can divide.
bool HasZeroValue(const Question& question);

/// Value of the first unit; 0, as in a cleared table, when there is none.
std::uint32_t FirstValue(const Question& question);

/// Most notes of a unit that fit into rest: rest / value, or the count when that is not less.
std::uint32_t MostOf(const Unit& unit, std::uint32_t rest);

}  // namespace reference
