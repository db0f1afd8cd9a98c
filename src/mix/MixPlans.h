#pragma once

#include "CMixAlgorithm.h"
#include "SpreadLcuNotes.h"

/// The unit whose value an amount must reach; below it nothing is paid, and that is a success.
enum class SmallestNote {
    LastUnit,   ///< the smallest where the largest value comes first
    FirstUnit,  ///< the smallest where the smallest value comes first
    NotAsked,
};

/// What one mix number stands for.
struct MixPlan {
    void (CMixAlgorithm::*order)(const MixRequest&, LcuTable&) const noexcept;
    SmallestNote smallestNote;
    std::int32_t (*search)(const MixRequest&, const LcuTable&, LcuNotes&) noexcept;
    void (*spread)(const LcuTable&, const LcuNotes&, MixResult&) noexcept;
};

using Mix = CMixAlgorithm;

// clang-format off
/// By mix number less 1. A new mix is a new row, and one in the catalogue (MixTypes.cpp).
constexpr MixPlan kMixPlans[] = {
    {&Mix::SortLCUByDenomination,                     SmallestNote::LastUnit,  Mix::CalcMinimumNotes,     SpreadInOrder},     // 1
    {&Mix::SortLCUByDenomination,                     SmallestNote::LastUnit,  Mix::CalcEqualNotes,       SpreadInOrder},     // 2
    {&Mix::SortLCUByDenomination,                     SmallestNote::LastUnit,  Mix::CalcEqualEmptying,    SpreadRoundRobin},  // 3
    {&Mix::SortLCUByTotalAmount,                      SmallestNote::NotAsked,  Mix::CalcFirstFitEmptying, SpreadInOrder},     // 4
    {&Mix::SortLCUByDenominationWithoutLOWCST,        SmallestNote::LastUnit,  Mix::CalcMinimumNotes,     SpreadInOrder},     // 5
    {&Mix::SortLCUByDenomWithoutCSTBelowCSTMin,       SmallestNote::LastUnit,  Mix::CalcMinimumNotes,     SpreadInOrder},     // 6
    {&Mix::SortLCUByDenomWithoutCSTBelowCSTMin,       SmallestNote::LastUnit,  Mix::CalcEqualNotes,       SpreadInOrder},     // 7
    {&Mix::SortLCUByDenomWithoutCSTBelowCSTMin,       SmallestNote::LastUnit,  Mix::CalcEqualEmptying,    SpreadRoundRobin},  // 8
    {&Mix::SortLCUByTotalAmountWithoutCSTBelowCSTMin, SmallestNote::NotAsked,  Mix::CalcFirstFitEmptying, SpreadInOrder},     // 9
    {&Mix::SortLCUByDenomination,                     SmallestNote::FirstUnit, Mix::CalcMaximumNotes,     SpreadInOrder},     // 10
};
// clang-format on
constexpr std::uint16_t kMixCount = sizeof(kMixPlans) / sizeof(kMixPlans[0]);

/// @return null for a number that no mix has.
inline const MixPlan* FindMixPlan(unsigned mixNumber) noexcept {
    return mixNumber >= 1 && mixNumber <= kMixCount ? &kMixPlans[mixNumber - 1] : nullptr;
}
