#pragma once

#include "CashUnitCodes.h"

/// The status that a group of cassettes keeps when another cassette joins it: the better one.
///
/// @param current  the group's status so far.
/// @param joining  the joining cassette's status.
inline std::uint16_t KeptStatus(std::uint16_t current, std::uint16_t joining) noexcept {
    // From best to worst; on purpose high stands before full, and inoperative before empty.
    // clang-format off
    constexpr std::uint8_t kRank[] = {
        0,  // Ok
        2,  // Full
        1,  // High
        3,  // Low
        5,  // Empty
        4,  // Inoperative
        6,  // Missing
    };
    // clang-format on
    constexpr std::uint16_t kRanked = sizeof(kRank);
    constexpr CodeSet kGivesWay =
        SetOf(CashUnitStatus::NoValue, CashUnitStatus::NoReference, CashUnitStatus::Manipulated);
    // On purpose: these three take whatever joins, even a status that nobody knows.
    if (Contains(kGivesWay, current)) {
        return joining;
    }
    const bool improves = current < kRanked && joining < kRanked && kRank[joining] < kRank[current];
    return improves ? joining : current;
}
