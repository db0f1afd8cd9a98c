#pragma once

#include "RecordedDays.h"

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace qxmix {

/// Where the withdrawals of runs come from: they are drawn, from a pattern or from the days of a
/// record; or there is one run, as it was recorded.
using DemandSource = std::variant<DemandPattern, RecordedDays, Demand>;

/// Whether there is one run only.
inline bool IsOneRun(const DemandSource& source) {
    return std::holds_alternative<Demand>(source);
}

/// Withdrawals of a run.
std::uint64_t SizeOf(const DemandSource& source, std::uint32_t seed);

/// Withdrawals of so many runs with one seed after the other.
std::uint64_t SizeOfRuns(const DemandSource& source, std::uint32_t seed, std::uint32_t runs);

/// The withdrawals of a run.
///
/// @param currency  of all of them, where they are drawn from a pattern.
Demand DemandOf(const DemandSource& source, std::uint32_t seed, const std::string& currency);

/// Days of a run: for a record those up to the last withdrawal.
std::uint32_t DaysOf(const DemandSource& source);

/// Draws so many days.
///
/// @param source  one that draws.
/// @throw InputError where it cannot.
void SetDays(DemandSource& source, std::uint32_t days);

/// What was recorded; null: nothing was.
const Demand* RecordOf(const DemandSource& source);

/// How a record was read.
std::vector<Finding> NotesOf(const DemandSource& source);

}  // namespace qxmix
