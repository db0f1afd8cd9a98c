#pragma once

#include "CashUnitCodes.h"
#include "ItemTotals.h"
#include "Records.h"

#include <algorithm>
#include <array>

constexpr unsigned kMaxSearchUnits = 5;  ///< more units than this no search handles

/// Items per unit, in table order; a search over n units uses the first n.
using Counts = std::array<std::uint32_t, kMaxCashUnits>;

/// What a search reads of the request and the ordered table, as native numbers.
struct SearchUnits {
    unsigned n;                                       ///< units, 1 to kMaxSearchUnits
    std::uint32_t amount;                             ///< to be paid, in the unit of the values
    std::uint32_t limit;                              ///< most notes, and most coins
    bool allowsPartial;                               ///< may pay less
    std::array<std::uint32_t, kMaxCashUnits> values;  ///< of one item
    std::array<std::uint32_t, kMaxCashUnits> counts;  ///< items there are
    std::array<bool, kMaxCashUnits> areCoins;         ///< totalled apart from notes

    /// @param table  of at most kMaxSearchUnits units.
    SearchUnits(const MixRequest& request, const LcuTable& table) noexcept
        : n(table.usCount), amount(request.ulAmount), limit(request.usMaxDispenseItems),
          allowsPartial(request.bAllowPartial == 1), values{}, counts{}, areCoins{} {
        for (unsigned unit = 0; unit < n; ++unit) {
            values[unit] = table.aLCUs[unit].ulValues;
            counts[unit] = table.aLCUs[unit].ulCount;
            areCoins[unit] = Contains(kCoinTypes, table.aLCUs[unit].usType);
        }
    }

    /// Whether an item is worth nothing (a coupon can be): there is no dividing by it.
    bool HaveZeroValue() const noexcept {
        return std::find(values.begin(), values.begin() + n, 0U) != values.begin() + n;
    }

    bool HaveCoins() const noexcept {
        return std::find(areCoins.begin(), areCoins.begin() + n, true) != areCoins.begin() + n;
    }

    /// Whether the amount or a count is 2^31 or more: read as a signed number it is negative, and
    /// the searches follow that reading only in their plain loops.
    bool ReachSignBit() const noexcept {
        std::uint32_t bits = amount;
        for (unsigned unit = 0; unit < n; ++unit) {
            bits |= counts[unit];
        }
        return (bits >> 31U) != 0;
    }

    /// The most items of a unit that `rest` has room for and the unit holds.
    std::uint32_t MostOf(unsigned unit, std::uint32_t rest) const noexcept {
        return std::min(rest / values[unit], counts[unit]);
    }

    /// Items of the first `units` units of a combination.
    ItemTotals TotalsOf(const Counts& combination, unsigned units) const noexcept {
        ItemTotals totals;
        for (unsigned unit = 0; unit < units; ++unit) {
            totals.Add(areCoins[unit], combination[unit]);
        }
        return totals;
    }

    bool IsWithinLimit(const Counts& combination) const noexcept {
        return TotalsOf(combination, n).AreWithin(limit);
    }
};

/// Whether the searches have a rule for as many units as the table holds.
inline bool HasSearchableSize(const LcuTable& table) noexcept {
    return table.usCount >= 1 && table.usCount <= kMaxSearchUnits;
}

/// Takes as many items of each unit as fit, in table order.
///
/// @return the part of the amount that is left unpaid.
inline std::uint32_t TakeGreedily(const SearchUnits& units, Counts& combination) noexcept {
    std::uint32_t rest = units.amount;
    for (unsigned unit = 0; unit < units.n; ++unit) {
        combination[unit] = units.MostOf(unit, rest);
        rest -= units.values[unit] * combination[unit];
    }
    return rest;
}

/// Hands a combination to the driver; entries from n upwards are not written.
inline void
StoreNotes(const SearchUnits& units, const Counts& combination, LcuNotes& notes) noexcept {
    for (unsigned unit = 0; unit < units.n; ++unit) {
        notes.aulNotes[unit] = combination[unit];
    }
}
