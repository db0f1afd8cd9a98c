#pragma once

#include <cstdint>

/// How many items a combination takes, notes and coins apart. Sums wrap at 32 bits.
struct ItemTotals {
    std::uint32_t notes = 0;
    std::uint32_t coins = 0;

    void Add(bool areCoins, std::uint32_t items) noexcept { (areCoins ? coins : notes) += items; }

    /// The limit holds for each of the two on its own; a total equal to it passes.
    bool AreWithin(std::uint32_t limit) const noexcept { return notes <= limit && coins <= limit; }
};
