#pragma once

#include "Demand.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace qxmix {

/// Most days that are drawn.
constexpr std::uint32_t kMostDays = 3660;

/// A recorded past of which whole days are drawn, each in the place of one of the same day of the
/// week: a month gives many weeks.
///
/// Each day counts, from that of the first withdrawal to that of the last, also one without any.
class RecordedDays {
public:
    /// @param file    as it stands in errors.
    /// @param record  with withdrawals.
    /// @throw InputError as SetDays.
    RecordedDays(std::string file, Demand record, std::uint32_t days);

    /// Draws so many days, the first a Monday.
    ///
    /// @throw InputError where the record lacks a day of the week that they have, where a draw
    /// might have no withdrawal at all, or too many.
    void SetDays(std::uint32_t days);

    std::uint32_t Days() const { return days_; }

    /// How the record was read.
    const Demand& Record() const { return *record_; }

    /// Withdrawals of a draw.
    std::uint64_t SizeOf(std::uint32_t seed) const;

    /// Draws a demand: the same one from the same record and seed on every machine.
    Demand Draw(std::uint32_t seed) const;

private:
    static constexpr std::size_t kWeekdays = 7;

    /// A day of the record: the places of its first withdrawal and of that behind its last.
    struct Day {
        std::size_t first = 0;
        std::size_t behind = 0;
        std::size_t Size() const { return behind - first; }
    };

    /// The days that a seed draws.
    std::vector<Day> DaysOf(std::uint32_t seed) const;

    std::string file_;
    std::shared_ptr<const Demand> record_;
    std::array<std::vector<Day>, kWeekdays> byWeekday_;
    std::uint32_t days_ = 1;
};

}  // namespace qxmix
